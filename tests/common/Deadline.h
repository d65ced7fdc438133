#pragma once
// Turns a hang into a failure: unless it goes out of scope within its time, it says what hung
// and ends the test executable. For steps that could block for ever (a FIFO opened, a thread joined,
// a huge text measured).
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

class Deadline {
public:
    Deadline(int seconds, std::string what)
        : watcher([this, seconds, what = std::move(what)] {
              std::unique_lock lock(mutex);
              if (!done.wait_for(lock, std::chrono::seconds(seconds), [this] { return over; })) {
                  std::fprintf(stderr, "FAIL! hung for %d s: %s\n", seconds, what.c_str());
                  std::fflush(stderr);
                  std::_Exit(3);
              }
          }) {}
    ~Deadline() {
        {
            const std::lock_guard lock(mutex);
            over = true;
        }
        done.notify_all();
        watcher.join();
    }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

private:
    std::mutex mutex;
    std::condition_variable done;
    bool over = false;
    std::thread watcher; // last: it starts once the members it uses are there
};

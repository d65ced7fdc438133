#pragma once
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

// Turns a hang into a failure: unless the object goes within `seconds`, the test process ends with a
// message naming what hung. A test that waits on a FIFO or a huge text would otherwise wait forever.
class HangLimit {
public:
    HangLimit(int seconds, const char* what)
        : watcher([this, seconds, what] {
              std::unique_lock<std::mutex> lock(mutex);
              if (released.wait_for(lock, std::chrono::seconds(seconds), [this] { return done; })) return;
              std::fprintf(stderr, "FAIL! %s did not end within %d s: it hangs.\n", what, seconds);
              std::fflush(stderr);
              std::_Exit(3);
          }) {}
    ~HangLimit() {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            done = true;
        }
        released.notify_one();
        watcher.join();
    }
    HangLimit(const HangLimit&) = delete;
    HangLimit& operator=(const HangLimit&) = delete;

private:
    std::mutex mutex;
    std::condition_variable released;
    bool done = false;
    std::thread watcher; // last: it starts once the members it uses are there
};

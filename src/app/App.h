#pragma once
class App {
public:
    static int Main(int argc, char* argv[]);
};

// Starts, and says so, as the window's program does with --self-check.
#include <cstdio>
#include <cstring>

int main(int argc, char** argv) {
    return argc == 2 && std::strcmp(argv[1], "--self-check") == 0 &&
                   std::puts("7306 Loop Manager 0.7.1 starts") >= 0
               ? 0
               : 1;
}

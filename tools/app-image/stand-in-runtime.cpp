// Stands in for the runtime of an AppImage where that cannot be had: unpacks the squashfs behind this program
// into a temporary folder, sets the variables that the real one sets, and runs AppRun there. Needs
// unsquashfs.
#include <elf.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

/// Where the program ends and the squashfs begins.
std::string endOfProgram(const std::string& file) {
    Elf64_Ehdr head{};
    std::ifstream(file, std::ios::binary).read(reinterpret_cast<char*>(&head), sizeof head);
    return std::to_string(head.e_shoff + std::uint64_t{head.e_shentsize} * head.e_shnum);
}

int run(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (auto& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const auto child = ::fork();
    if (child == 0) {
        ::execvp(arguments.front(), arguments.data());
        ::_exit(127);
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::array<char, PATH_MAX> self{};
    std::string folder = "/tmp/.mount_XXXXXX";
    if (::readlink("/proc/self/exe", self.data(), self.size() - 1) < 0 ||
        ::mkdtemp(folder.data()) == nullptr) {
        return 1;
    }
    const auto root = folder + "/root";
    int status = run({"unsquashfs", "-q", "-n", "-o", endOfProgram(self.data()), "-d", root, self.data()});
    if (status == 0) {
        ::setenv("APPIMAGE", self.data(), 1);
        ::setenv("APPDIR", root.c_str(), 1);
        std::vector<std::string> words{root + "/AppRun"};
        words.insert(words.end(), argv + 1, argv + argc);
        status = run(words);
    }
    run({"rm", "-rf", folder});
    return status;
}

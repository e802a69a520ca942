// SPDX-License-Identifier: LicenseRef-Proprietary
// Files and processes.
#include "fuzz/lua_programs/sandbox.h"
#include "fuzz/lua_programs/shell.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

std::string folder;
bool entered = false;
bool filesMade = false;
std::FILE *nowhere = nullptr;
std::FILE *output = nullptr;
std::FILE *errors = nullptr;

// In a folder that cannot be.
constexpr char noFile[] = "/dev/null/none";

// What is open of the files that were opened in the sandbox. Lua closes those that it collects,
// unless a program has taken the finaliser away.
std::set<std::FILE *> files;

std::FILE *noteOpened(std::FILE *file)
{
    if (file != nullptr && entered) {
        files.insert(file);
    }
    return file;
}

// libFuzzer, which writes down an input while the program that it found a mistake with still runs.
bool isOfThisProgram(const void *caller)
{
    Dl_info own = {};
    Dl_info of = {};
    return dladdr(&folder, &own) != 0 && dladdr(caller, &of) != 0 && of.dli_fbase == own.dli_fbase;
}

// The name of a program's file in the sandbox, which has no folders. Empty where it is none.
std::string inSandbox(const char *path)
{
    if (path == nullptr || *path == '\0' || *path == '.' || std::strlen(path) > 100 ||
        std::strchr(path, '/') != nullptr) {
        return {};
    }
    if (!filesMade) {
        filesMade = true;
        mkdir(folder.c_str(), 0700);
    }
    return folder + "/" + path;
}

template <class Function, class... Arguments>
auto onFile(Function function, const char *path, Arguments... arguments)
    -> decltype(function(path, arguments...))
{
    const std::string inside = inSandbox(path);
    return function(inside.empty() ? noFile : inside.c_str(), arguments...);
}

} // namespace

void prepareSandbox()
{
    if (std::freopen("/dev/null", "r", stdin) == nullptr ||
        (nowhere = std::fopen("/dev/null", "w")) == nullptr) {
        std::perror("lua_programs: sandbox");
        std::abort();
    }
    folder = std::filesystem::temp_directory_path() / ("lua_programs." + std::to_string(getpid()));
    output = stdout;
    errors = stderr;
    // A file that a program makes stays small.
    std::signal(SIGXFSZ, SIG_IGN);
    constexpr rlimit size = {1 << 24, 1 << 24};
    setrlimit(RLIMIT_FSIZE, &size);
}

void enterSandbox()
{
    entered = true;
    stdout = nowhere;
    stderr = nowhere;
    filesMade = false;
}

void leaveSandbox()
{
    entered = false;
    stdout = output;
    stderr = errors;
    if (filesMade) {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
}

void closeFiles()
{
    while (!files.empty()) {
        std::fclose(*files.begin());
    }
}

extern "C" {

void exit(int status) noexcept
{
    if (programRuns()) {
        endProgram(End::exit);
    }
    LIBRARY_FUNCTION(exit)(status);
    std::abort();
}

int system(const char *command)
{
    return programRuns() ? 0 : LIBRARY_FUNCTION(system)(command);
}

FILE *popen(const char *command, const char *mode)
{
    if (!programRuns()) {
        return LIBRARY_FUNCTION(popen)(command, mode);
    }
    if (std::strcmp(mode, "r") != 0 && std::strcmp(mode, "w") != 0) {
        errno = EINVAL;
        return nullptr;
    }
    return noteOpened(LIBRARY_FUNCTION(fopen)("/dev/null", mode));
}

int pclose(FILE *pipe)
{
    return programRuns() ? std::fclose(pipe) : LIBRARY_FUNCTION(pclose)(pipe);
}

FILE *fopen(const char *path, const char *mode)
{
    const auto open = LIBRARY_FUNCTION(fopen);
    if (isOfThisProgram(__builtin_return_address(0))) {
        return open(path, mode);
    }
    return noteOpened(programRuns() ? onFile(open, path, mode) : open(path, mode));
}

FILE *tmpfile()
{
    return noteOpened(LIBRARY_FUNCTION(tmpfile)());
}

FILE *freopen(const char *path, const char *mode, FILE *file)
{
    const auto open = LIBRARY_FUNCTION(freopen);
    files.erase(file);
    return noteOpened(programRuns() ? onFile(open, path, mode, file) : open(path, mode, file));
}

int fclose(FILE *file)
{
    files.erase(file);
    return LIBRARY_FUNCTION(fclose)(file);
}

int remove(const char *path)
{
    const auto removeFile = LIBRARY_FUNCTION(remove);
    return programRuns() ? onFile(removeFile, path) : removeFile(path);
}

int rename(const char *from, const char *to)
{
    const auto renameFile = LIBRARY_FUNCTION(rename);
    if (!programRuns()) {
        return renameFile(from, to);
    }
    const std::string target = inSandbox(to);
    return onFile(renameFile, from, target.empty() ? noFile : target.c_str());
}

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    const auto openFile = LIBRARY_FUNCTION(open);
    if (!programRuns()) {
        return openFile(path, flags, mode);
    }
    const int descriptor = onFile(openFile, path, flags, mode);
    ownDescriptor(descriptor);
    return descriptor;
}

int mkstemp(char *name)
{
    if (!programRuns()) {
        return LIBRARY_FUNCTION(mkstemp)(name);
    }
    const int descriptor = LIBRARY_FUNCTION(open)("/dev/null", O_RDWR | O_CLOEXEC);
    ownDescriptor(descriptor);
    return descriptor;
}

void *dlopen(const char *path, int mode)
{
    return LIBRARY_FUNCTION(dlopen)(programRuns() ? noFile : path, mode);
}

} // extern "C"

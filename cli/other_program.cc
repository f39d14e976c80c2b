// SPDX-License-Identifier: MIT
#include "cli/other_program.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <spawn.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/standard_streams.h"

namespace brevant {
namespace {

constexpr const char* kDesktopProgram = "brevant-desktop";

bool canRun(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

std::optional<std::string> onPath(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::string candidate = (folder.empty() ? "." : folder) + '/' + name;
    if (canRun(candidate)) return candidate;
  }
  return std::nullopt;
}

// A command line as the system takes it.
struct Words {
  Words(const std::string& program, const std::vector<std::string>& arguments) : words{program} {
    words.insert(words.end(), arguments.begin(), arguments.end());
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
  }

  std::vector<std::string> words;
  std::vector<char*> pointers{};
};

}  // namespace

std::string ownPath() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::optional<std::string> sessionProgram() {
  const auto prefix = std::filesystem::path(ownPath()).parent_path().parent_path();
  const std::string program = prefix / "libexec/brevant-session";
  return canRun(program) ? std::optional(program) : std::nullopt;
}

std::optional<std::string> desktopProgram() {
  const char* named = std::getenv("BREVANT_DESKTOP");
  if (named != nullptr && *named != '\0') {
    return canRun(named) ? std::optional<std::string>(named) : std::nullopt;
  }
  const std::string beside = std::filesystem::path(ownPath()).parent_path() / kDesktopProgram;
  return canRun(beside) ? std::optional(beside) : onPath(kDesktopProgram);
}

std::string startBeside(const std::string& program, const std::vector<std::string>& arguments) {
  Words words(program, arguments);
  // Neither what this process ignores or blocks nor its end is the other's affair.
  sigset_t none;
  sigset_t usual;
  sigemptyset(&none);
  sigemptyset(&usual);
  for (const int signal : {SIGCHLD, SIGXFSZ}) sigaddset(&usual, signal);
  std::signal(SIGCHLD, SIG_IGN);  // nobody asks how it ended
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &usual);
  posix_spawnattr_setflags(&attributes,
                           POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
  pid_t process = 0;
  const int error =
      posix_spawn(&process, program.c_str(), nullptr, &attributes, words.pointers.data(), environ);
  posix_spawnattr_destroy(&attributes);
  return error == 0 ? "" : program + ": " + std::strerror(error);
}

std::string become(const std::string& program, const std::vector<std::string>& arguments) {
  Words words(program, arguments);
  std::fflush(nullptr);
  execv(program.c_str(), words.pointers.data());
  return program + ": " + std::strerror(errno);
}

ExitCode runSilently(const std::string& program, const std::vector<std::string>& arguments) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    writeMessage(become(program, arguments));
    _exit(1);
  }
  int status = 0;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (child > 0 && WIFEXITED(status)) {
    const int code = WEXITSTATUS(status);
    return code == 0 || code == 2 ? static_cast<ExitCode>(code) : ExitCode::kNotDone;
  }
  writeMessage(program + ": " + (child < 0 ? std::strerror(errno) : strsignal(WTERMSIG(status))));
  return ExitCode::kNotDone;
}

}  // namespace brevant

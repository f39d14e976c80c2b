// SPDX-License-Identifier: MIT
#include "cli/part.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/program.h"
#include "platform/linux/descriptor.h"

namespace brevant {
namespace {

// Nobody reads while the other writes: memory holds any amount, where a pipe would be full.
Descriptor memoryFile() {
  return Descriptor(memfd_create("answer", MFD_CLOEXEC));
}

std::string contents(const Descriptor& file) {
  std::string text;
  const off_t size = lseek(file.number(), 0, SEEK_END);
  if (size <= 0) return text;
  text.resize(static_cast<std::size_t>(size));
  const ssize_t count = pread(file.number(), text.data(), text.size(), 0);
  text.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
  return text;
}

[[noreturn]] void runAsCopy(const std::vector<std::string>& words, const Descriptor& out,
                            const Descriptor& errors) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  prctl(PR_SET_DUMPABLE, 0);  // no core is kept of an end that is foreseen
  dup2(out.number(), STDOUT_FILENO);
  dup2(errors.number(), STDERR_FILENO);
  std::vector<const char*> arguments{"brevant"};
  for (const std::string& word : words) arguments.push_back(word.c_str());
  const int code = runProgram(static_cast<int>(arguments.size()), arguments.data(), nullptr);
  std::fflush(nullptr);
  _exit(code);
}

// The last line, without the program's name.
std::string reason(std::string said) {
  constexpr std::string_view kName = "brevant: ";
  while (said.ends_with('\n')) said.pop_back();
  said.erase(0, said.rfind('\n') + 1);
  return said.starts_with(kName) ? said.substr(kName.size()) : said;
}

}  // namespace

PartAnswer answerApart(const std::vector<std::string>& words) {
  const Descriptor out = memoryFile();
  const Descriptor errors = memoryFile();
  std::fflush(nullptr);
  const pid_t copy = out && errors ? fork() : -1;
  if (copy < 0) return {"", std::strerror(errno), ""};
  if (copy == 0) runAsCopy(words, out, errors);

  int status = 0;
  while (waitpid(copy, &status, 0) < 0 && errno == EINTR) {
  }
  PartAnswer part{contents(out), "", contents(errors)};
  while (part.answer.ends_with('\n')) part.answer.pop_back();
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return part;
  part.answer.clear();
  part.error = reason(part.said);
  if (part.error.empty() && WIFSIGNALED(status)) part.error = strsignal(WTERMSIG(status));
  if (part.error.empty()) part.error = "it ended without an answer";
  return part;
}

}  // namespace brevant

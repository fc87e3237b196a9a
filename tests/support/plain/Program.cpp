#include "support/plain/Program.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace test {
namespace {

using sim::Descriptor;

std::pair<Descriptor, Descriptor> makePipe() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

std::vector<char*> pointersTo(const std::string& name, const std::vector<std::string>& arguments) {
  std::vector<char*> pointers{const_cast<char*>(name.c_str())};
  for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

std::string readAll(const Descriptor& descriptor) {
  std::string text;
  char buffer[4096];
  ssize_t count;
  while ((count = ::read(descriptor.get(), buffer, sizeof buffer)) > 0)
    text.append(buffer, static_cast<std::size_t>(count));
  return text;
}

int reap(pid_t process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

RunningProgram::RunningProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                               uid_t user) {
  auto [outputEnd, outputStart] = makePipe();
  auto [errorsEnd, errorsStart] = makePipe();
  const std::string path = program.string();
  const auto pointers = pointersTo(path, arguments);
  identifier_ = ::fork();
  if (identifier_ == 0) {
    ::dup2(outputStart.get(), STDOUT_FILENO);
    ::dup2(errorsStart.get(), STDERR_FILENO);
    if (user != 0 && ::setuid(user) != 0) ::_exit(126);
    ::execv(path.c_str(), pointers.data());
    ::_exit(127);
  }
  output_ = std::move(outputEnd);
  errors_ = std::move(errorsEnd);
}

RunningProgram::~RunningProgram() {
  if (isEnded_) return;
  ::kill(identifier_, SIGKILL);
  reap(identifier_);
}

std::string RunningProgram::readLine() {
  char character;
  while (read_.find('\n') == std::string::npos && ::read(output_.get(), &character, 1) == 1) read_ += character;
  const auto end = read_.find('\n');
  std::string line = read_.substr(0, end);
  read_.erase(0, end == std::string::npos ? end : end + 1);
  return line;
}

void RunningProgram::signal(int number) { ::kill(identifier_, number); }

ProgramResult RunningProgram::wait() {
  ProgramResult result;
  result.output = read_ + readAll(output_);
  result.errors = readAll(errors_);
  result.status = reap(identifier_);
  isEnded_ = true;
  return result;
}

ProgramResult run(const std::filesystem::path& program, const std::vector<std::string>& arguments, uid_t user) {
  return RunningProgram(program, arguments, user).wait();
}

ProgramResult runWithoutEnvironment(const std::filesystem::path& program, const std::string& name,
                                    const std::vector<std::string>& arguments) {
  auto [end, start] = makePipe();
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, start.get(), STDERR_FILENO);
  pid_t process = 0;
  const int error =
      ::posix_spawn(&process, program.c_str(), &actions, nullptr, pointersTo(name, arguments).data(), nullptr);
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start the program");
  start.reset();
  ProgramResult result;
  result.errors = readAll(end);
  result.status = reap(process);
  return result;
}

}  // namespace test

// SPDX-License-Identifier: LGPL-2.1-or-later
#include "tests/media/process.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace lumotune::media::rig {
namespace {

sockaddr_in socket_address(const std::string& host, int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = inet_addr(host.c_str());
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

} // namespace

Process::Process(std::vector<std::string> command) {
  std::vector<char*> arguments;
  for (std::string& each : command)
    arguments.push_back(each.data());
  arguments.push_back(nullptr);
  int to[2];
  int from[2];
  if (pipe2(to, O_CLOEXEC) != 0 || pipe2(from, O_CLOEXEC) != 0)
    return;
  pid_ = fork();
  if (pid_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is ended leaves nothing behind
    dup2(to[0], 0);
    dup2(from[1], 1);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }
  close(to[0]);
  close(from[1]);
  to_ = to[1];
  from_ = from[0];
  std::signal(SIGPIPE, SIG_IGN);
}

Process& Process::operator=(Process&& other) noexcept {
  std::swap(pid_, other.pid_);
  std::swap(to_, other.to_);
  std::swap(from_, other.from_);
  return *this;
}

void Process::end() {
  if (pid_ <= 0)
    return;
  close(to_);
  close(from_);
  kill(pid_, SIGTERM);
  for (int i = 0; i < 100; ++i) {
    if (waitpid(pid_, nullptr, WNOHANG) == pid_) {
      pid_ = 0;
      return;
    }
    usleep(10000);
  }
  kill(pid_, SIGKILL);
  waitpid(pid_, nullptr, 0);
  pid_ = 0;
}

void Process::write_line(const std::string& line) {
  const std::string whole = line + "\n";
  (void)!write(to_, whole.data(), whole.size());
}

std::string Process::read_line() {
  std::string line;
  char c = 0;
  while (read(from_, &c, 1) == 1 && c != '\n')
    line += c;
  return line;
}

int free_port(const std::string& host) {
  const int socket_number = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = socket_address(host, 0);
  socklen_t size = sizeof address;
  (void)bind(socket_number, reinterpret_cast<sockaddr*>(&address), size);
  (void)getsockname(socket_number, reinterpret_cast<sockaddr*>(&address), &size);
  close(socket_number);
  return ntohs(address.sin_port);
}

bool port_answers(const std::string& host, int port) {
  const int socket_number = socket(AF_INET, SOCK_STREAM, 0);
  const sockaddr_in address = socket_address(host, port);
  const bool answers = connect(socket_number, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(socket_number);
  return answers;
}

} // namespace lumotune::media::rig

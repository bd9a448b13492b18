// What is told of a call that doesn't return: a fault of the processor, or a minute gone by.
#include <unistd.h>
#include <csignal>
#include <cstring>

#include "fuzz/run.hpp"

namespace fuzz {
namespace {

char crash_line[512];
char crash_seed[32];

void tell(const char* text) {
  if (write(STDERR_FILENO, text, std::strlen(text)) < 0) _exit(4);
}

void handler(int signal) {
  tell(signal == SIGALRM ? "FOUND no end of " : "FOUND a fault of the processor: ");
  tell(strsignal(signal));
  tell(" under ");
  tell(crash_line);
  tell("\n  --seed ");
  tell(crash_seed);
  tell("\n");
  _exit(3);
}

}  // namespace

void set_crash_line(const std::string& line) {
  std::strncpy(crash_line, line.c_str(), sizeof crash_line - 1);
  alarm(60);
}

void install_signal_handlers() {
  static char stack[64 * 1024];
  std::strncpy(crash_seed, std::to_string(kit::run_seed()).c_str(), sizeof crash_seed - 1);
  stack_t alternative{};
  alternative.ss_sp = stack;
  alternative.ss_size = sizeof stack;
  sigaltstack(&alternative, nullptr);
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_ONSTACK;
  for (const int s : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGALRM}) sigaction(s, &action, nullptr);
}

}  // namespace fuzz

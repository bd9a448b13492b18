// The examples' command lines, read and ended.
#include "command.hpp"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace examples {

std::string parse(int argc, char** argv, Options& options, const std::string& path) {
  std::string given;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    const auto option = options.find(argument);
    if (option != options.end()) {
      if (++i == argc) throw Error(argument + ": a value is missing");
      option->second = argv[i];
    } else if (argument.size() > 1 && argument[0] == '-') {
      throw Error("unknown option '" + argument + "'");
    } else if (!given.empty()) {
      throw Error("more than one input: '" + argument + "'");
    } else {
      given = argument;
    }
  }
  return given.empty() ? path : given;
}

int whole_number(const std::string& option, const std::string& text, int last) {
  char* end = nullptr;
  errno = 0;
  const long value = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno != 0 || value < 1 || value > last) {
    throw Error(option + ": '" + text + "' is no number from 1 to " + std::to_string(last));
  }
  return static_cast<int>(value);
}

int finish(const char* program, const char* input, void (*run)(int, char**), int argc, char** argv) {
  try {
    run(argc, argv);
    return 0;
  } catch (const std::bad_alloc&) {
    std::fprintf(stderr, "%s: the %s is too large for the memory of a 32-bit process\n", program, input);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", program, error.what());
  }
  return 2;
}

}  // namespace examples

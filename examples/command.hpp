// What the examples' command lines share: the error meant for the user, options with values, and a program's end.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace examples {

// Input that can't be worked on; the text is meant for the user and fits on one line.
struct Error : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Options that take a value each, in any order, and at most one path; an option left out keeps the value given here.
using Options = std::map<std::string, std::string>;
std::string parse(int argc, char** argv, Options& options, const std::string& path);

// The text as a whole number from 1 to `last`.
int whole_number(const std::string& option, const std::string& text, int last);

// Runs the program and turns what it throws into a line on stderr and exit status 2. `input` is what can be too large
// for the memory of a 32-bit process.
int finish(const char* program, const char* input, void (*run)(int, char**), int argc, char** argv);

}  // namespace examples

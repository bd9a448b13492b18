// The handle of the one-call filters.
#pragma once
#include "adapters/adapter.hpp"
#include "nox/adapters.h"

struct NoxFilterHandle {
  void* spec;    // null for a median
  void* dlyIn;   // read by the next call
  void* dlyOut;  // written by the next call
  Nox8u* work;
  Nox32s size;  // elements of each delay line
};

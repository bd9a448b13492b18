// The C++ library's random numbers: its Mersenne twisters behind its distributions.
#include <new>
#include <random>

#include "bench/peers/peers.hpp"

namespace NOX_PEER_SPACE {

template <class T, class Engine, class Distribution>
struct Stream {
  struct State {
    Engine engine{12345};
    Distribution distribution;
    explicit State(Distribution d) : distribution(d) {}
  };
  template <int First, int Second>
  static void prepare(const Operands* o) {
    new (o->work) State(Distribution(First, Second));
  }
  static void run(const Operands* o) {
    State& s = *static_cast<State*>(o->work);
    for (int i = 0; i < o->len; ++i) static_cast<T*>(o->d)[i] = static_cast<T>(s.distribution(s.engine));
  }
};
using Bytes = Stream<unsigned char, std::mt19937, std::uniform_int_distribution<int>>;
using Words = Stream<short, std::mt19937, std::uniform_int_distribution<int>>;
using Doubles = Stream<double, std::mt19937_64, std::uniform_real_distribution<double>>;
using Normal = Stream<double, std::mt19937_64, std::normal_distribution<double>>;

const NamedLoop kLoops[] = {
    {"noxsRandUniform_8u", Bytes::run, Bytes::prepare<100, 200>},
    {"noxsRandUniform_16s", Words::run, Words::prepare<0, 1>},
    {"noxsRandUniform_64f", Doubles::run, Doubles::prepare<0, 1>},
    {"noxsRandGauss_64f", Normal::run, Normal::prepare<0, 1>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(random, "std::random", kLoops);

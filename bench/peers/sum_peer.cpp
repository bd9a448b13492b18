// Sums and dot products as Eigen expressions on unaligned maps of the arrays, where Eigen is installed.
#if __has_include(<eigen3/Eigen/Core>)
#include <eigen3/Eigen/Core>

#include "bench/peers/peers.hpp"

namespace {

using Eigen::Map;
using Eigen::VectorXcd;
using Eigen::VectorXd;
using Eigen::VectorXi;

template <class A>
Map<const A> array(const void* p, int len) {
  return {static_cast<const typename A::Scalar*>(p), len};
}
template <class A>
typename A::Scalar& result(const Operands* o) {
  return *static_cast<typename A::Scalar*>(o->d);
}
template <class A>
void sum(const Operands* o) {
  result<A>(o) = array<A>(o->a, o->len).sum();
}
template <class A>
void mean(const Operands* o) {
  result<A>(o) = array<A>(o->a, o->len).mean();
}
// A product without a conjugate.
template <class A, class B>
void dot(const Operands* o) {
  result<B>(o) = (array<A>(o->a, o->len).transpose() * array<B>(o->b, o->len)).value();
}
void dot_mixed(const Operands* o) {
  result<VectorXcd>(o) = array<VectorXd>(o->a, o->len).cwiseProduct(array<VectorXcd>(o->b, o->len)).sum();
}

const NamedLoop kLoops[] = {
    {"noxsSum_64f", sum<VectorXd>},
    {"noxsSum_64fc", sum<VectorXcd>},
    {"noxsSum_32s_Sfs", sum<VectorXi>},
    {"noxsMean_64f", mean<VectorXd>},
    {"noxsMean_64fc", mean<VectorXcd>},
    {"noxsDotProd_64f", dot<VectorXd, VectorXd>},
    {"noxsDotProd_64fc", dot<VectorXcd, VectorXcd>},
    {"noxsDotProd_64f64fc", dot_mixed},
};

}  // namespace

NOX_PEER_SET(eigen_sums, "eigen", kLoops);
#endif

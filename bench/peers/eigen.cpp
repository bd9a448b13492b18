// The same jobs as Eigen expressions on unaligned maps of the arrays.
#include <Eigen/Core>

#include "bench/peers/peers.hpp"

namespace {

using Eigen::ArrayXcd;
using Eigen::ArrayXd;
using Eigen::Map;

template <class A>
Map<const A> a(const Operands* o) {
  return {static_cast<const typename A::Scalar*>(o->a), o->len};
}
template <class A>
Map<const A> b(const Operands* o) {
  return {static_cast<const typename A::Scalar*>(o->b), o->len};
}
template <class A>
Map<A> d(const Operands* o) {
  return {static_cast<typename A::Scalar*>(o->d), o->len};
}

template <class A>
typename A::Scalar c(const Operands* o) {
  if constexpr (Eigen::NumTraits<typename A::Scalar>::IsComplex)
    return {o->c[0], o->c[1]};
  else
    return o->c[0];
}

template <class A>
struct Loops {
  static void add(const Operands* o) { d<A>(o) = a<A>(o) + b<A>(o); }
  static void add_in_place(const Operands* o) { d<A>(o) += a<A>(o); }
  static void sub(const Operands* o) { d<A>(o) = b<A>(o) - a<A>(o); }
  static void sub_in_place(const Operands* o) { d<A>(o) -= a<A>(o); }
  static void mul(const Operands* o) { d<A>(o) = a<A>(o) * b<A>(o); }
  static void mul_in_place(const Operands* o) { d<A>(o) *= a<A>(o); }
  static void div(const Operands* o) { d<A>(o) = b<A>(o) / a<A>(o); }
  static void div_in_place(const Operands* o) { d<A>(o) /= a<A>(o); }
  static void add_product(const Operands* o) { d<A>(o) += a<A>(o) * b<A>(o); }
  static void sqr(const Operands* o) { d<A>(o) = a<A>(o).square(); }
  static void sqr_in_place(const Operands* o) { d<A>(o) = d<A>(o).square(); }
  static void add_c(const Operands* o) { d<A>(o) = a<A>(o) + c<A>(o); }
  static void add_c_in_place(const Operands* o) { d<A>(o) += c<A>(o); }
  static void sub_c(const Operands* o) { d<A>(o) = a<A>(o) - c<A>(o); }
  static void sub_c_in_place(const Operands* o) { d<A>(o) -= c<A>(o); }
  static void sub_c_rev(const Operands* o) { d<A>(o) = c<A>(o) - a<A>(o); }
  static void sub_c_rev_in_place(const Operands* o) { d<A>(o) = c<A>(o) - d<A>(o); }
  static void mul_c(const Operands* o) { d<A>(o) = a<A>(o) * c<A>(o); }
  static void mul_c_in_place(const Operands* o) { d<A>(o) *= c<A>(o); }
  static void div_c(const Operands* o) { d<A>(o) = a<A>(o) * (1.0 / c<A>(o)); }
  static void div_c_in_place(const Operands* o) { d<A>(o) *= 1.0 / c<A>(o); }
  static void sqrt(const Operands* o) { d<A>(o) = a<A>(o).sqrt(); }
  static void sqrt_in_place(const Operands* o) { d<A>(o) = d<A>(o).sqrt(); }
  static void set(const Operands* o) { d<A>(o).setConstant(c<A>(o)); }
  static void flip(const Operands* o) { d<A>(o) = a<A>(o).reverse(); }
  static void flip_in_place(const Operands* o) { d<A>(o).reverseInPlace(); }
  static void conj(const Operands* o) { d<A>(o) = a<A>(o).conjugate(); }
  static void conj_in_place(const Operands* o) { d<A>(o) = d<A>(o).conjugate(); }
  static void conj_flip(const Operands* o) { d<A>(o) = a<A>(o).conjugate().reverse(); }
  static void copy(const Operands* o) { d<A>(o) = a<A>(o); }
};

// One result.
template <class A>
typename Eigen::NumTraits<typename A::Scalar>::Real& result(const Operands* o) {
  return *static_cast<typename Eigen::NumTraits<typename A::Scalar>::Real*>(o->d);
}
template <class A>
struct Reductions {
  static void largest(const Operands* o) { result<A>(o) = a<A>(o).maxCoeff(); }
  static void smallest(const Operands* o) { result<A>(o) = a<A>(o).minCoeff(); }
  static void largest_size(const Operands* o) { result<A>(o) = a<A>(o).abs().maxCoeff(); }
  static void norm_inf(const Operands* o) { result<A>(o) = std::sqrt(a<A>(o).abs2().maxCoeff()); }
  static void norm_1(const Operands* o) { result<A>(o) = a<A>(o).abs().sum(); }
  static void norm_roots(const Operands* o) { result<A>(o) = a<A>(o).abs2().sqrt().sum(); }
  static void norm_2(const Operands* o) { result<A>(o) = std::sqrt(a<A>(o).abs2().sum()); }
  static void difference_inf(const Operands* o) { result<A>(o) = std::sqrt((a<A>(o) - b<A>(o)).abs2().maxCoeff()); }
  static void difference_size(const Operands* o) { result<A>(o) = (a<A>(o) - b<A>(o)).abs().maxCoeff(); }
  static void difference_1(const Operands* o) { result<A>(o) = (a<A>(o) - b<A>(o)).abs().sum(); }
  static void difference_roots(const Operands* o) { result<A>(o) = (a<A>(o) - b<A>(o)).abs2().sqrt().sum(); }
  static void difference_2(const Operands* o) { result<A>(o) = std::sqrt((a<A>(o) - b<A>(o)).abs2().sum()); }
};
template <class T>
using Integers = Eigen::Array<T, Eigen::Dynamic, 1>;
using R = Loops<ArrayXd>;
using C = Loops<ArrayXcd>;

const NamedLoop kLoops[] = {
    {"noxsAdd_64f", R::add},
    {"noxsAdd_64f_I", R::add_in_place},
    {"noxsAdd_64fc", C::add},
    {"noxsAdd_64fc_I", C::add_in_place},
    {"noxsSub_64f", R::sub},
    {"noxsSub_64f_I", R::sub_in_place},
    {"noxsSub_64fc", C::sub},
    {"noxsSub_64fc_I", C::sub_in_place},
    {"noxsMul_64f", R::mul},
    {"noxsMul_64f_I", R::mul_in_place},
    {"noxsMul_64fc", C::mul},
    {"noxsMul_64fc_I", C::mul_in_place},
    {"noxsDiv_64f", R::div},
    {"noxsDiv_64f_I", R::div_in_place},
    {"noxsDiv_64fc", C::div},
    {"noxsDiv_64fc_I", C::div_in_place},
    {"noxsSqr_64f", R::sqr},
    {"noxsSqr_64f_I", R::sqr_in_place},
    {"noxsSqr_64fc", C::sqr},
    {"noxsSqr_64fc_I", C::sqr_in_place},
    {"noxsAddC_64f", R::add_c},
    {"noxsAddC_64f_I", R::add_c_in_place},
    {"noxsAddC_64fc", C::add_c},
    {"noxsAddC_64fc_I", C::add_c_in_place},
    {"noxsSubC_64f", R::sub_c},
    {"noxsSubC_64f_I", R::sub_c_in_place},
    {"noxsSubC_64fc", C::sub_c},
    {"noxsSubC_64fc_I", C::sub_c_in_place},
    {"noxsMulC_64f", R::mul_c},
    {"noxsMulC_64f_I", R::mul_c_in_place},
    {"noxsMulC_64fc", C::mul_c},
    {"noxsMulC_64fc_I", C::mul_c_in_place},
    {"noxsDivC_64f", R::div_c},
    {"noxsDivC_64f_I", R::div_c_in_place},
    {"noxsDivC_64fc", C::div_c},
    {"noxsDivC_64fc_I", C::div_c_in_place},
    {"noxsSubCRev_64f", R::sub_c_rev},
    {"noxsSubCRev_64f_I", R::sub_c_rev_in_place},
    {"noxsSubCRev_64fc", C::sub_c_rev},
    {"noxsSubCRev_64fc_I", C::sub_c_rev_in_place},
    {"noxsAddProduct_64f", R::add_product},
    {"noxsAddProduct_64fc", C::add_product},
    {"noxsSqrt_64f", R::sqrt},
    {"noxsSqrt_64f_I", R::sqrt_in_place},
    {"noxsSqrt_64fc", C::sqrt},
    {"noxsSqrt_64fc_I", C::sqrt_in_place},
    {"noxsSet_64f", R::set},
    {"noxsSet_64fc", C::set},
    {"noxsCopy_64f", R::copy},
    {"noxsCopy_64fc", C::copy},
    {"noxsFlip_64f", R::flip},
    {"noxsFlip_64f_I", R::flip_in_place},
    {"noxsFlip_64fc", C::flip},
    {"noxsFlip_64fc_I", C::flip_in_place},
    {"noxsConj_64fc", C::conj},
    {"noxsConj_64fc_I", C::conj_in_place},
    {"noxsConjFlip_64fc", C::conj_flip},
    {"noxsMax_64f", Reductions<ArrayXd>::largest},
    {"noxsMin_64f", Reductions<ArrayXd>::smallest},
    {"noxsMax_32s", Reductions<Integers<int>>::largest},
    {"noxsMin_16s", Reductions<Integers<short>>::smallest},
    {"noxsNorm_Inf_64f", Reductions<ArrayXd>::largest_size},
    {"noxsNorm_L1_64f", Reductions<ArrayXd>::norm_1},
    {"noxsNorm_L2_64f", Reductions<ArrayXd>::norm_2},
    {"noxsNorm_Inf_64fc64f", Reductions<ArrayXcd>::norm_inf},
    {"noxsNorm_L1_64fc64f", Reductions<ArrayXcd>::norm_roots},
    {"noxsNorm_L2_64fc64f", Reductions<ArrayXcd>::norm_2},
    {"noxsNormDiff_Inf_64f", Reductions<ArrayXd>::difference_size},
    {"noxsNormDiff_L1_64f", Reductions<ArrayXd>::difference_1},
    {"noxsNormDiff_L2_64f", Reductions<ArrayXd>::difference_2},
    {"noxsNormDiff_Inf_64fc64f", Reductions<ArrayXcd>::difference_inf},
    {"noxsNormDiff_L1_64fc64f", Reductions<ArrayXcd>::difference_roots},
    {"noxsNormDiff_L2_64fc64f", Reductions<ArrayXcd>::difference_2},
};

}  // namespace

NOX_PEER_SET(PEER, "eigen", kLoops);

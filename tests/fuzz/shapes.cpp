// Shapes: by the beginnings of names, what makes a call of a family sensible. The first row that fits holds.
#include <algorithm>
#include <cmath>

#include "fuzz/call.hpp"
#include "nox/nox.h"

namespace fuzz {
namespace {

int small(Call& c, int low, int high) {
  const int n = static_cast<int>(c.run.random.integer(low, high));
  return c.run.origin.cap > 0 ? std::max(low, std::min(n, c.run.origin.cap)) : n;
}
int length_of(Call& c) { return c.get(c.has("len") ? "len" : "n"); }

void plain(Call&) {}
void unaliased(Call& c) { c.may_alias = false; }

void bits(Call& c) {
  const int from = small(c, 0, 40), to = small(c, 0, 40), n = c.get("len");
  c.set("srcBitOffset", from);
  c.set("dstBitOffset", to);
  c.extent("pSrc", (from + n + 7) / 8);
  c.extent("pDst", (to + n + 7) / 8);
  c.may_alias = false;
}
// Elements of 24 bits are three bytes each.
void three_bytes(Call& c) {
  for (const kit::Parameter& p : c.declaration.parameters)
    if (p.kind == Kind::Array && p.type == Type::Nox8u) c.extent(p.name, int64_t{3} * c.get("len"));
  c.may_alias = c.has("pSrc") && c.has("pDst") && c.type("pSrc") == c.type("pDst");
}
void slope(Call& c) {
  // Of integers: no NaN. Of reals: rounding goes by the address.
  if (c.type("pDst") == Type::Nox64f || c.type("pDst") == Type::Nox32f) {
    c.equal = false;
    c.tolerance = c.type("pDst") == Type::Nox64f ? 1e-12 : 1e-4;
  }
  const Nox64f offset = c.run.random.uniform(-1e3, 1e3), step = c.run.random.uniform(-50, 50);
  c.set("offset", offset);
  c.set("slope", c.run.random.chance(0.2) ? step * 1e7 : step);
}
// What becomes of a NaN and of the sign of a zero goes by the place; the rest is equal.
void places_matter(Call& c) {
  if (c.declaration.parameters[0].type != Type::Nox64f && c.declaration.parameters[0].type != Type::Nox64fc) return;
  c.tame = c.run.random.chance(0.8);
  if (c.has("level")) c.set("level", c.run.random.uniform(-1, 1));
  if (!c.tame) c.compared = c.status_compared = false;
}
// Two functions in one, each with checks of its own: one may run although the other refuses.
void two_in_one(Call& c) {
  c.may_write = true;
  c.may_alias = false;
}
void haar(Call& c) {
  const int n = c.get("len");
  for (const char* low : {"pDstLow", "pSrcLow"}) c.extent(low, (n + 1) / 2);
  for (const char* high : {"pDstHigh", "pSrcHigh"}) c.extent(high, n / 2);
  c.may_alias = false;
}

void sampler(Call& c) {
  const bool up = c.declaration.name.rfind("noxsSampleUp", 0) == 0;
  const int n = c.run.length(1, 700), factor = small(c, 1, 9);
  const int phase = c.run.random.chance(0.9) ? static_cast<int>(c.run.random.integer(0, factor - 1)) : c.run.any_int();
  c.set("srcLen", n);
  c.set("factor", factor);
  c.content<Nox32s>("pPhase", {phase});
  c.extent("pSrc", n);
  const bool good = phase >= 0 && phase < factor;
  c.extent("pDst", !good ? 0 : up ? n * factor : phase < n ? (n - phase + factor - 1) / factor : 0);
  c.may_alias = false;
}

int method(Call& c, bool normalised) {
  const int codes = c.run.code({0, 1, 2}, 0.03), norm = normalised ? c.run.code({0, 0x100, 0x200}, 0) : 0;
  return codes == (codes & 3) ? codes | norm : codes;
}
void convolution(Call& c) {
  const int one = c.run.length(1), two = c.run.random.chance(0.5) ? c.run.length(1, 60) : c.run.length(1),
            alg = method(c, false);
  int size = 0;
  noxsConvolveGetBufferSize(one, two, NOX_TYPE_64F, alg, &size);
  c.set("src1Len", one), c.set("src2Len", two), c.set("algType", alg);
  c.extent("pSrc1", one), c.extent("pSrc2", two), c.extent("pDst", one + two - 1), c.extent("pBuffer", size);
  c["pBuffer"].content.assign(static_cast<size_t>(size), 0x77);
  c.may_alias = false;
}
void autocorrelation(Call& c) {
  const int n = c.run.length(1), lags = c.run.length(1), alg = method(c, true);
  const bool complex = c.type("pSrc") == Type::Nox64fc;
  int size = 0;
  noxsAutoCorrNormGetBufferSize(n, lags, complex ? NOX_TYPE_64FC : NOX_TYPE_64F, alg, &size);
  c.set("srcLen", n), c.set("dstLen", lags), c.set("algType", alg);
  c.extent("pSrc", n), c.extent("pDst", lags), c.extent("pBuffer", size);
  c.may_alias = false;
  c.may_write = true;  // another normalisation is told of behind the correlation
}
void cross_correlation(Call& c) {
  const int one = c.run.length(1), two = c.run.random.chance(0.5) ? c.run.length(1, 60) : c.run.length(1),
            lags = c.run.length(1), alg = method(c, true);
  const int low =
      c.run.random.chance(0.9) ? static_cast<int>(c.run.random.integer(-one - 3, two + 3)) : c.run.any_int();
  const bool complex = c.type("pSrc1") == Type::Nox64fc;
  int size = 0;
  noxsCrossCorrNormGetBufferSize(one, two, lags, low, complex ? NOX_TYPE_64FC : NOX_TYPE_64F, alg, &size);
  c.set("src1Len", one), c.set("src2Len", two), c.set("dstLen", lags), c.set("lowLag", low), c.set("algType", alg);
  c.extent("pSrc1", one), c.extent("pSrc2", two), c.extent("pDst", lags), c.extent("pBuffer", size);
  c.may_alias = false;
  c.may_write = true;
}
// Sizes belong to the build, and with them which are too large.
void size_query(Call& c) {
  for (size_t i = 0; i < c.declaration.parameters.size(); ++i) {
    const kit::Parameter& p = c.declaration.parameters[i];
    if (p.kind != Kind::Value) continue;
    const std::string name = p.name;
    const int n = c.run.length(1), any = c.run.any_int(), type = c.run.code({13, 14, 19, 20}), alg = method(c, true);
    c.set(name, name.find("Type") != std::string::npos ? name == "algType" ? alg : type
                : c.run.random.chance(0.7)             ? n
                                                       : any);
  }
  c.compared = c.status_compared = false;
  c.may_write = true;  // a size of 0
}
void plane(Call& c) {
  const int kw = small(c, 1, 12), kh = small(c, 1, 9), w = small(c, 1, 70), h = small(c, 1, 12);
  const int ax = small(c, 0, kw - 1), ay = small(c, 0, kh - 1);
  // Steps are bytes; the arrays are counted in elements, the windows of the region included.
  const int from = 8 * (w + kw - 1) + 8 * small(c, 0, 3), to = 8 * w + 8 * small(c, 0, 3);
  for (const auto& [name, v] : {std::pair<const char*, int>{"kernelWidth", kw},
                                {"kernelHeight", kh},
                                {"roiWidth", w},
                                {"roiHeight", h},
                                {"anchorX", ax},
                                {"anchorY", ay},
                                {"srcStep", from},
                                {"dstStep", to}})
    c.set(name, v);
  const int row = from / 8;
  c.extent("pSrc", int64_t{row} * (h + kh - 2) + w + kw - 1);
  c["pSrc"].first = int64_t{row} * (kh - 1 - ay) + kw - 1 - ax;
  c.extent("pDst", int64_t{to} / 8 * (h - 1) + w);
  c.extent("pKernel", kw * kh);
  int size = 0;
  noxiFilterGetBufSize_64f_C1R(kw, kh, w, &size);
  c.extent("pBuffer", size);
  c.may_alias = false;
}

void matrix(Call& c) {
  const bool square = c.has("n");
  const int rows = square ? small(c, 0, 20) : small(c, 0, 30), cols = square ? rows : small(c, 0, 30);
  const int gap = small(c, 0, 3), other_gap = small(c, 0, 3);
  const std::string& name = c.declaration.name;
  const bool transposed = name.rfind("TransposeMatrix", 0) == 0 || name.rfind("AdjungateMatrix", 0) == 0;
  const int out_rows = transposed ? cols : rows, out_cols = transposed ? rows : cols;
  const auto span = [](int64_t r, int64_t k, int64_t stride) { return r > 0 && k > 0 ? (r - 1) * stride + k : 0; };
  c.set_if("rows", rows), c.set_if("cols", cols), c.set_if("n", rows);
  c.set_if("srcStride", cols + gap), c.set_if("dstStride", out_cols + other_gap);
  c.extent("src", span(rows, cols, cols + gap));
  c.extent("dst", span(out_rows, out_cols, out_cols + other_gap));
  // In place; of the exchanges too, whose other dimension is chosen here.
  int in_rows = rows, in_cols = cols;
  if (c.has("row2")) {
    in_rows = small(c, 2, 9);
    c.set("row1", static_cast<int>(c.run.random.integer(0, in_rows - 1)));
    c.set("row2", static_cast<int>(c.run.random.integer(0, in_rows - 1)));
  } else if (c.has("col2")) {
    in_cols = small(c, 2, 9);
    c.set("col1", static_cast<int>(c.run.random.integer(0, in_cols - 1)));
    c.set("col2", static_cast<int>(c.run.random.integer(0, in_cols - 1)));
  }
  c.set_if("stride", in_cols + gap);
  c.extent("m", span(in_rows, in_cols, in_cols + gap));
  c.may_alias = false;
}
void block(Call& c) {
  const int rows = small(c, 0, 9), cols = small(c, 0, 20);
  for (const std::string side : {"src", "dst"}) {
    const int top = small(c, 0, 4), left = small(c, 0, 4), stride = left + cols + small(c, 0, 3);
    c.set(side + "Row", top), c.set(side + "Col", left), c.set(side + "Stride", stride);
    c.extent(side, rows > 0 ? (top + rows - 1) * stride + left + cols : 0);
  }
  c.set("rows", rows), c.set("cols", cols);
  c.may_alias = false;
}

void strided(Call& c) {
  const int n = length_of(c) % 1500, stride = static_cast<int>(c.run.random.integer(-7, 7));
  const bool packs = c.declaration.name.find("unpack") == std::string::npos;
  c.set("n", n), c.set("stride", stride), c.all_extents(n);
  const char* const spread = packs ? "src" : "dst";
  c.extent(spread, n > 0 ? int64_t{n - 1} * std::abs(stride) + 1 : 0);
  if (stride < 0 && n > 0) c[spread].first = int64_t{n - 1} * -stride;
  c.may_alias = false;
}
void indexed(Call& c) {
  const int n = length_of(c), room = small(c, 1, 300);
  c.content("index", c.places(n, room));
  c.extent(c.declaration.name.find("unpack") == std::string::npos ? "src" : "dst", room);
  c.may_alias = false;
}
void masked(Call& c) {
  std::vector<Nox32s> mask = c.places(length_of(c), 4);
  for (Nox32s& m : mask) m = m == 0 ? INT32_MIN : m == 1 ? 0 : m == 2 ? INT32_MAX : 1;
  const auto selected = std::count_if(mask.begin(), mask.end(), [](Nox32s m) { return m > 0; });
  c.content("mask", mask);
  c.extent(c.declaration.name.find("unpack") == std::string::npos ? "dst" : "src", selected);
  c.may_alias = false;
}
void bit_pack(Call& c) {
  const int words = small(c, 0, 60), start = small(c, 0, 70), all = 32 * words;
  c.set_if("start", start), c.set_if("words", words), c.set_if("wordCount", words);
  if (c.has("count")) {
    const int count = small(c, 0, all);
    c.set("count", count);
    c.extent("src", words), c.extent("dst", start + count);
  } else {
    const int limit = start + all;
    c.set("limit", limit);
    c.extent("src", limit), c.extent("dst", words);
  }
  c.may_alias = false;
}
// The first delta elements are copied even if there are more of them than n.
void lagged(Call& c) {
  const int n = length_of(c), delta = small(c, 0, 40);
  c.set("delta", delta);
  c.all_extents(std::max(n, delta));
  c.may_alias = false;
}
void histogram(Call& c) {
  const int bins = small(c, 1, 50), n = length_of(c);
  if (c.has("binCount")) c.set("binCount", bins);
  if (c.has("indexes")) c.content("indexes", c.places(n, bins));
  c.extent(c.has("bins") ? "bins" : "sums", bins);
  c.may_alias = false;
}
// No divisor may be 0, nor -1 of the lowest integer.
void quotient(Call& c) {
  const auto divisors = [&](const std::string& name, int n) {
    kit::Random random(c.run.random.bits());
    const int wide = c.type(name) == Type::Nox32s ? 31 : c.type(name) == Type::Nox16s ? 15 : 8;
    std::vector<Nox32s> out(static_cast<size_t>(n));
    for (Nox32s& d : out) {
      const int shift = static_cast<int>(random.integer(1, wide - 1));
      d = static_cast<Nox32s>(random.integer(1, (int64_t{1} << shift) + 1));
      if (wide != 8 && random.chance(0.5)) d = -d - 1;
    }
    return out;
  };
  const int n = length_of(c);
  const bool reversed = c.declaration.name.find("REV") != std::string::npos;
  if (c.has("value") && !reversed) c.set("value", divisors("value", 1)[0]);
  const std::string array = c.has("div") ? "div" : !reversed ? "" : c.has("srcDst") ? "srcDst" : "src";
  c.may_alias = array.empty();
  if (array.empty()) return;
  const std::vector<Nox32s> wide = divisors(array, n);
  if (c.type(array) == Type::Nox32s) return c.content(array, wide);
  if (c.type(array) == Type::Nox16s) return c.content(array, std::vector<Nox16s>(wide.begin(), wide.end()));
  std::vector<Nox8u> narrow(wide.begin(), wide.end());
  for (Nox8u& d : narrow) d = std::max<Nox8u>(d, 1);
  c.content(array, narrow);
}
void neighbours(Call& c) {
  const int rows = small(c, 1, 12), cols = small(c, 1, 60), k = small(c, 1, 6), start = small(c, 0, 5);
  for (const auto& [name, v] : {std::pair<const char*, int>{"rowStart", start},
                                {"rowCount", rows},
                                {"colCount", cols},
                                {"k", k},
                                {"colStart", 100}})
    c.set(name, v);
  const int all = start + rows;
  c.extent("block", rows * cols), c.extent("colTerm", cols), c.extent("rowTerm", all);
  c.content("worstSlot", c.places(all, k));
  c.extent("bestIndex", all * k);
  c.content("worstDist", std::vector<Nox64f>(static_cast<size_t>(all), 1e3));
  c.content("bestDist", std::vector<Nox64f>(static_cast<size_t>(all * k), 1e3));
}

void goertzel(Call& c) {
  const Nox64f low = c.run.random.uniform(0.05, 0.45), any = c.run.random.uniform(-0.1, 1.1);
  c.compared = c.compared && c.run.random.chance(0.5);
  const auto pick = [&] { return c.compared ? low : any; };
  if (c.has("pFreqs")) {
    c.content<Nox64f>("pFreqs", {pick(), pick()});
    c.extent("pVal", 2);
  } else {
    c.set("rFreq", pick());
  }
}
void wave(Call& c) {
  const Nox64f magnitude = c.run.random.uniform(0.1, 9), frequency = c.run.random.uniform(0.01, 0.49),
               bad = c.run.random.uniform(-1, 2), phase = c.run.random.uniform(0, 6.28);
  const bool good = c.run.random.chance(0.9);
  c.set("magn", good ? magnitude : bad);
  if (c.has("rFreq")) c.set("rFreq", good ? frequency : bad);
  if (c.has("asym")) c.set("asym", c.run.random.uniform(-3.1, 3.1));
  if (c.has("pPhase")) c.content<Nox64f>("pPhase", {good ? phase : bad * 4});
  c.compared = true;
}
// A jump of the wave may come an element earlier in one build.
void triangle(Call& c) {
  wave(c);
  c.compared = false;
}
void seeded(Call& c) {
  const Nox64f one = c.run.random.uniform(-9, 9), two = c.run.random.uniform(-9, 9);
  c.set(c.has("low") ? "low" : "mean", one);
  c.set(c.has("high") ? "high" : "stdDev", two);
  c.compared = true;
}
// The weights' recurrence errs with the square of the length.
void window(Call& c) {
  const double n = c.get("len");
  c.tolerance = 1e-12 + 4e-9 * (n / 16384) * (n / 16384);
  if (c.has("alpha")) c.set("alpha", c.run.random.uniform(-2, 2));
}

struct Row {
  const char* names;  // a bar between the beginnings
  void (*shape)(Call&);
};
constexpr Row kShapes[] = {
    {"noxsCopyLE_1u|noxsCopyBE_1u|noxsCopy_1u", bits},
    {"noxsSwapBytes_24u|noxsConvert_24|noxsConvert_32f24|noxsConvert_32s24|noxsConvert_32u24", three_bytes},
    {"noxsVectorSlope", slope},
    {"noxsWTHaar", haar},
    {"noxsSampleUp|noxsSampleDown", sampler},
    {"noxsConvolveGet|noxsAutoCorrNormGet|noxsCrossCorrNormGet|noxsFIRSRGet|noxsFIRMRGet|noxiFilterBorderGet|"
     "noxiFilterGetBuf|noxsDCTFwdGet|noxsDCTInvGet|noxsRandUniformGet|noxsRandGaussGet|noxsIIR|noxsFilterMedianGet",
     size_query},
    {"noxsConvolve", convolution},
    {"noxsAutoCorr", autocorrelation},
    {"noxsCrossCorr", cross_correlation},
    {"noxiFilter_64f", plane},
    {"CopySubMatrix", block},
    {"Transpose|Adjungate|ResizeMatrix|UpperTriangle|LowerTriangle|ZeroUpper|ZeroLower|RowExchange|ColExchange",
     matrix},
    {"vbpacki|vsipacki|vipacki|vdpacki|vbunpacki|vsiunpacki|viunpacki|vdunpacki", strided},
    {"vbpackv|vsipackv|vipackv|vdpackv|vbunpackv|vsiunpackv|viunpackv|vdunpackv", indexed},
    {"vbpackm|vsipackm|vipackm|vdpackm|vbunpackm|vsiunpackm|viunpackm|vdunpackm|PackByMask", masked},
    {"BitPack|BitUnpack", bit_pack},
    {"Histo", histogram},
    {"RemDiv|DivC_32s_|ModC_|DivCREV", quotient},
    {"CumSumDelta", lagged},
    {"InternalCollect", neighbours},
    {"noxsGoertz", goertzel},
    {"noxsTriangle", triangle},
    {"noxsTone|noxsVectorJaehne", wave},
    {"noxsRandUniform_Direct|noxsRandGauss_Direct", seeded},
    {"noxsWin", window},
    {"noxsNorm_Inf|noxsNormDiff_Inf|noxsMin_|noxsMax_|noxsMinMax|noxsMinIndx|noxsMaxIndx|noxsThreshold_LT_64f|"
     "noxsThreshold_GT_64f|noxsThreshold_64f",
     places_matter},
    {"noxsCartToPolar", two_in_one},
    {"noxsSort|noxsConjFlip|noxsFlip|Reverse|FindI|FindA|CumSum", unaliased},
    {"", plain},
};

}  // namespace

void shape(Call& call) {
  for (const Row& row : kShapes)
    if (begins(call.declaration.name, row.names)) return row.shape(call);
}

}  // namespace fuzz

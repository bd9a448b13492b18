// The index forms that only form addresses: base and index give what the primitive gives for base + index.
//
// Taken from the declarations: an index form belongs here if its primitive has the same parameters but for the
// indexes and takes no record; those that take one are tested with their family.
#include <gtest/gtest.h>

#include <algorithm>

#include "contract/arguments.hpp"
#include "kit/coverage.hpp"
#include "kit/dispatch.hpp"
#include "kit/variants.hpp"

namespace {

using contract::Arguments;
using kit::Declaration;
using kit::Kind;

constexpr int kElements = 32;  // that may be used on either side of the element an index form works from

// Another function under the name, or one that only a phase within its range lets do anything: tested with their
// families.
bool tested_elsewhere(const std::string& name) {
  return name == "MinIndx_8u_Idx" || name.find("_Direct_") != std::string::npos || name.find("Sample") == 4;
}

// The primitive, or null if the form isn't one of these.
const Declaration* primitive_of(const Declaration& form) {
  if (!form.is_index_form() || tested_elsewhere(form.name)) return nullptr;
  std::string name = form.name.substr(0, form.name.size() - 4);
  if (name == "noxsCopy_1u") name = "noxsCopyLE_1u";
  const Declaration* plain = kit::find_declaration(name);
  if (!plain) return nullptr;
  std::vector<const char*> without_indexes;
  bool any_array = false;
  for (size_t i = 0; i < form.parameters.size(); ++i) {
    // Records can't be made up.
    if (form.parameters[i].kind == Kind::Pointer && form.parameters[i].type == kit::Type::Pointer) return nullptr;
    any_array |= form.parameters[i].kind == Kind::Array;
    if (!contract::is_index(form, i)) without_indexes.push_back(form.parameters[i].name);
  }
  const bool same =
      std::equal(without_indexes.begin(), without_indexes.end(), plain->parameters.begin(), plain->parameters.end(),
                 [](const std::string& a, const kit::Parameter& b) { return a == b.name; });
  return same && any_array ? plain : nullptr;
}

class IndexForms : public kit::EachVariant {};

TEST_P(IndexForms, EqualThePrimitiveOnBasePlusIndex) {
  const kit::PauseCoverage pause(kit::PauseCoverage::kRows);
  kit::Random random;
  int tested = 0;
  for (const Declaration& form : kit::declarations()) {
    const Declaration* plain = primitive_of(form);
    if (!plain) continue;
    SCOPED_TRACE(form.name);
    ++tested;
    const void* plain_entry = plain->address ? plain->address : kit::row_entry(plain->row, GetParam().column);

    Arguments with_index(form);
    with_index.fill(random);
    const auto before = with_index.contents();
    Arguments direct(*plain);
    int sign = 1;
    for (size_t i = 0, k = 0; i < form.parameters.size(); ++i) {
      if (contract::is_index(form, i)) continue;
      if (form.parameters[i].kind == Kind::Array) {
        // The address worked on is the same in both calls; the index is positive and negative in turn.
        const int bytes = static_cast<int>(kit::size_of(form.parameters[i].type));
        const int index = sign * static_cast<int>(random.integer(1, 1000000));
        sign = -sign;
        uint8_t* const at = with_index.memory(i) + kElements * bytes / 2;
        with_index.set_pointer(
            i, reinterpret_cast<void*>(reinterpret_cast<uintptr_t>(at) - static_cast<uintptr_t>(index * bytes)));
        with_index.set(i + 1, index);
        direct.set_pointer(k, at);
      } else if (form.parameters[i].kind == Kind::Pointer) {
        direct.set_pointer(k, with_index.memory(i));
      } else if (form.parameters[i].name == std::string("relOp")) {
        with_index.set(i, 4);  // a relation that exists
        direct.set(k, 4);
      }
      ++k;
    }
    const bool returns = form.result != kit::Type::Void;
    const int expected_status = direct.status(plain_entry);
    const auto expected = with_index.contents();
    with_index.restore(before);
    const int status = with_index.status(form.address);
    EXPECT_EQ(returns ? status : 0, returns ? expected_status : 0);
    EXPECT_EQ(with_index.contents(), expected);
    // A result behind a pointer may be what stood there.
    const auto is_pointer = [](const kit::Parameter& p) { return p.kind == Kind::Pointer; };
    if (std::none_of(form.parameters.begin(), form.parameters.end(), is_pointer)) {
      EXPECT_TRUE(expected != before) << "the call did nothing, so it shows nothing";
    }
  }
  EXPECT_GT(tested, 40);
}
NOX_EACH_VARIANT(IndexForms);

}  // namespace

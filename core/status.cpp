// Status texts: a constant table made from the comments of nox/status.h, sorted by code.
#include "nox/core.h"

namespace {

struct StatusRow {
  NoxStatus code;
  const char* text;
};
constexpr StatusRow kStatusRows[] = {
#include "status_rows.inc"
};
static_assert(sizeof kStatusRows / sizeof kStatusRows[0] == 139, "the shared vocabulary has 139 codes");

}  // namespace

extern "C" const char* noxGetStatusString(NoxStatus status) {
  const char* unknown = nullptr;
  for (const StatusRow& row : kStatusRows) {
    if (row.code == status) return row.text;
    if (row.code == noxStsUnknownStatusCodeErr) unknown = row.text;
  }
  return unknown;
}

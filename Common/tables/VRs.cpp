// Made by tools/tables/make_tables.py; change the facts, not this file.
// clang-format off
//
// The built-in value representations.

#include "BuiltInRows.h"

#pragma GCC diagnostic ignored "-Woverlength-strings"

namespace vdicom {

// VR, name, length limit, kind, unit size
#define ROWS(ROW) \
    ROW(AE, "Application Entity", 16, 0x0201, 1) \
    ROW(AS, "Age String", 4, 0x0200, 1) \
    ROW(AT, "Attribute Tag", 4, 0x0100, 4) \
    ROW(CS, "Code String", 16, 0x0201, 1) \
    ROW(DA, "Date", 8, 0x0200, 1) \
    ROW(DS, "Decimal String", 16, 0x0201, 1) \
    ROW(DT, "Date Time", 26, 0x0201, 1) \
    ROW(FD, "Floating Point Double", 8, 0x0100, 8) \
    ROW(FL, "Floating Point Single", 4, 0x0100, 4) \
    ROW(IS, "Integer String", 12, 0x0201, 1) \
    ROW(LO, "Long String", 64, 0x0201, 1) \
    ROW(LT, "Long Text", 10240, 0x0401, 1) \
    ROW(OB, "Other Byte String", 0, 0x0103, 1) \
    ROW(OW, "Other Word String", 0, 0x0103, 2) \
    ROW(PN, "Person Name", 64, 0x0202, 1) \
    ROW(SH, "Short String", 16, 0x0201, 1) \
    ROW(SL, "Signed Long", 4, 0x0100, 4) \
    ROW(SQ, "Sequence of Items", 0, 0x0004, 1) \
    ROW(SS, "Signed Short", 2, 0x0100, 2) \
    ROW(ST, "Short Text", 1024, 0x0401, 1) \
    ROW(TM, "Time", 16, 0x0201, 1) \
    ROW(UI, "Unique Identifier", 64, 0x0201, 1) \
    ROW(UL, "Unsigned Long", 4, 0x0100, 4) \
    ROW(UN, "Unknown", 0, 0x0103, 1) \
    ROW(US, "Unsigned Short", 2, 0x0100, 2) \
    ROW(UT, "Unlimited Text", 0xFFFFFFFE, 0x0401, 1) \
    ROW(OF, "Other Float String", 0xFFFFFFFC, 0x0101, 4)

namespace {

#define AS_ROW(vr, name, length, kind, unit) {VDicomVRCode(#vr[0], #vr[1]), length, kind, unit},
constexpr VRRow kRows[] = {ROWS(AS_ROW)};

#define AS_TEXT(vr, name, length, kind, unit) name "\0"
constexpr char kTexts[] = ROWS(AS_TEXT);

} // namespace

// The literal's own zero is not part of the texts.
const BuiltInTable<VRRow> kVRTable = {kRows, sizeof kRows / sizeof kRows[0], kTexts, sizeof kTexts - 1};

} // namespace vdicom

#include "CharacterTables.h"

#include "TextCodec.h"

#include <array>
#include <memory>
#include <mutex>

namespace vdicom {

using platform::TextCodec;
using platform::TextEncoding;

namespace {

constexpr std::size_t kSide = 94;
constexpr std::size_t kTrails = 190; ///< of GBK: 0x40 to 0xFE without 0x7F
constexpr std::size_t kLeads = 126;  ///< 0x81 to 0xFE
// Characters of four bytes count from 0x81308130 on; the ones of the first plane, and those beyond it.
constexpr std::size_t kFourByteBasic = 39420;
constexpr std::size_t kFourByteSupplementary = 189000;
constexpr std::uint16_t kNone = 0xFFFF;

/// A table and, when characters are encoded, its reverse.
struct Table {
    std::once_flag made;
    std::once_flag reversed;
    std::unique_ptr<char16_t[]> cells;
    std::unique_ptr<std::uint16_t[]> places; ///< of each character of the first plane; kNone: not in the set
};

template <class Decode> const char16_t* Cells(Table& table, TextEncoding encoding, std::size_t size, Decode decode) {
    std::call_once(table.made, [&] {
        auto cells = std::make_unique<char16_t[]>(size);
        const TextCodec codec(encoding);
        for (std::size_t i = 0; i < size; ++i) {
            const char32_t c = decode(codec, i);
            cells[i] = c < 0x10000 ? static_cast<char16_t>(c) : u'\0';
        }
        table.cells = std::move(cells);
    });
    return table.cells.get();
}

std::uint16_t PlaceOf(Table& table, std::size_t size, char32_t c) {
    std::call_once(table.reversed, [&] {
        auto places = std::make_unique<std::uint16_t[]>(0x10000);
        std::fill_n(places.get(), 0x10000, kNone);
        // Of several codes for one character the first one counts.
        for (std::size_t i = size; i-- > 0;) {
            if (table.cells[i] != 0)
                places[table.cells[i]] = static_cast<std::uint16_t>(i);
        }
        table.places = std::move(places);
    });
    return c < 0x10000 ? table.places[c] : kNone;
}

// 0xA0 to 0xFF.
const char16_t* SingleByte(GraphicSet set) {
    static std::array<Table, 10> tables;
    constexpr std::size_t kUpper = 96;
    const auto index = static_cast<std::size_t>(set) - static_cast<std::size_t>(GraphicSet::latin2);
    return Cells(tables[index], static_cast<TextEncoding>(index), kUpper, [](const TextCodec& codec, std::size_t i) {
        const auto byte = static_cast<unsigned char>(0xA0 + i);
        return codec.Decode(&byte, 1);
    });
}
static_assert(static_cast<int>(TextEncoding::thai) - static_cast<int>(TextEncoding::latin2) ==
                  static_cast<int>(GraphicSet::thai) - static_cast<int>(GraphicSet::latin2),
              "both enumerations have the same order");

Table& DoubleByte(GraphicSet set) {
    static std::array<Table, 4> tables;
    const auto index = static_cast<std::size_t>(set) - static_cast<std::size_t>(GraphicSet::jisX0208);
    const auto encoding = static_cast<TextEncoding>(static_cast<std::size_t>(TextEncoding::jisX0208) + index);
    Cells(tables[index], encoding, kSide * kSide, [](const TextCodec& codec, std::size_t i) {
        const std::array<unsigned char, 2> bytes{static_cast<unsigned char>(0x21 + i / kSide),
                                                 static_cast<unsigned char>(0x21 + i % kSide)};
        const char32_t c = codec.Decode(bytes.data(), 2);
        // Some tables have a plain backslash where the wide one belongs; it would divide values.
        return c == U'\\' ? char32_t{0xFF3C} : c;
    });
    return tables[index];
}

Table& Chinese(bool full) {
    static std::array<Table, 2> tables;
    Table& table = tables[full ? 1 : 0];
    Cells(table, full ? TextEncoding::gb18030 : TextEncoding::gbk, kLeads * kTrails,
          [](const TextCodec& codec, std::size_t i) {
              const std::size_t trail = 0x40 + i % kTrails;
              const std::array<unsigned char, 2> bytes{static_cast<unsigned char>(0x81 + i / kTrails),
                                                       static_cast<unsigned char>(trail < 0x7F ? trail : trail + 1)};
              return codec.Decode(bytes.data(), 2);
          });
    return table;
}

void PutFourBytes(std::size_t number, unsigned char* bytes) {
    bytes[3] = static_cast<unsigned char>(0x30 + number % 10);
    number /= 10;
    bytes[2] = static_cast<unsigned char>(0x81 + number % 126);
    number /= 126;
    bytes[1] = static_cast<unsigned char>(0x30 + number % 10);
    bytes[0] = static_cast<unsigned char>(0x81 + number / 10);
}

Table& ChineseFour() {
    static Table table;
    Cells(table, TextEncoding::gb18030, kFourByteBasic, [](const TextCodec& codec, std::size_t i) {
        std::array<unsigned char, 4> bytes{};
        PutFourBytes(i, bytes.data());
        return codec.Decode(bytes.data(), 4);
    });
    return table;
}

} // namespace

char32_t DecodeGraphic(GraphicSet set, unsigned int low, unsigned int high) {
    if (low < 0x20 || low > 0x7F)
        return 0;
    switch (set) {
    case GraphicSet::none:
        return 0;
    case GraphicSet::ascii:
        return low;
    case GraphicSet::jisRoman:
        return low == 0x5C ? 0xA5 : low == 0x7E ? 0x203E : low;
    case GraphicSet::jisKatakana:
        return low >= 0x21 && low <= 0x5F ? 0xFF61 + (low - 0x21) : 0;
    case GraphicSet::latin1:
        return low + 0x80;
    case GraphicSet::jisX0208:
    case GraphicSet::jisX0212:
    case GraphicSet::ksX1001:
    case GraphicSet::gb2312:
        if (high < 0x21 || high > 0x7E || low < 0x21 || low > 0x7E)
            return 0;
        return DoubleByte(set).cells[(high - 0x21) * kSide + (low - 0x21)];
    default:
        return SingleByte(set)[low - 0x20];
    }
}

unsigned int EncodeGraphic(GraphicSet set, char32_t c) {
    switch (set) {
    case GraphicSet::none:
        return 0;
    case GraphicSet::ascii:
        return c >= 0x20 && c < 0x7F ? c : 0;
    case GraphicSet::jisRoman:
        if (c == 0xA5 || c == 0x203E)
            return c == 0xA5 ? 0x5C : 0x7E;
        return c >= 0x20 && c < 0x7F && c != U'\\' && c != U'~' ? c : 0;
    case GraphicSet::jisKatakana:
        return c >= 0xFF61 && c <= 0xFF9F ? 0x21 + (c - 0xFF61) : 0;
    case GraphicSet::latin1:
        return c >= 0xA0 && c <= 0xFF ? c - 0x80 : 0;
    case GraphicSet::jisX0208:
    case GraphicSet::jisX0212:
    case GraphicSet::ksX1001:
    case GraphicSet::gb2312: {
        constexpr unsigned int side = kSide;
        const unsigned int place = PlaceOf(DoubleByte(set), kSide * kSide, c);
        return place == kNone ? 0 : ((0x21 + place / side) << 8) | (0x21 + place % side);
    }
    default: {
        const char16_t* cells = SingleByte(set);
        for (unsigned int i = 0; c >= 0xA0 && i < 96; ++i) {
            if (cells[i] == c)
                return 0x20 + i;
        }
        return 0;
    }
    }
}

char32_t DecodeChinese(bool full, unsigned int lead, unsigned int trail) {
    if (lead < 0x81 || lead > 0xFE || trail < 0x40 || trail == 0x7F || trail > 0xFE)
        return 0;
    return Chinese(full).cells[(lead - 0x81) * kTrails + (trail < 0x7F ? trail : trail - 1) - 0x40];
}

char32_t DecodeChinese4(const unsigned char* bytes) {
    if (bytes[0] < 0x81 || bytes[0] > 0xFE || bytes[1] < 0x30 || bytes[1] > 0x39 || bytes[2] < 0x81 ||
        bytes[2] > 0xFE || bytes[3] < 0x30 || bytes[3] > 0x39)
        return 0;
    const std::size_t number =
        ((std::size_t{bytes[0]} - 0x81) * 10 + bytes[1] - 0x30) * 1260 + (bytes[2] - 0x81U) * 10 + bytes[3] - 0x30;
    if (number < kFourByteBasic)
        return ChineseFour().cells[number];
    if (number < kFourByteSupplementary || number >= kFourByteSupplementary + 0x100000)
        return 0;
    return static_cast<char32_t>(0x10000 + number - kFourByteSupplementary);
}

std::size_t EncodeChinese(bool full, char32_t c, unsigned char* bytes) {
    const std::size_t place = PlaceOf(Chinese(full), kLeads * kTrails, c);
    if (place != kNone) {
        const std::size_t trail = 0x40 + place % kTrails;
        bytes[0] = static_cast<unsigned char>(0x81 + place / kTrails);
        bytes[1] = static_cast<unsigned char>(trail < 0x7F ? trail : trail + 1);
        return 2;
    }
    if (!full)
        return 0;
    std::size_t number = c < 0x10000 ? PlaceOf(ChineseFour(), kFourByteBasic, c) : kFourByteSupplementary + c - 0x10000;
    if (number == kNone)
        return 0;
    PutFourBytes(number, bytes);
    return 4;
}

} // namespace vdicom

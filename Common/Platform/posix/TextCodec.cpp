#include "TextCodec.h"

#include <array>
#include <cstring>

#include <iconv.h>

namespace vdicom::platform {

namespace {

constexpr std::intptr_t kNone = -1;

const char* NameOf(TextEncoding encoding) {
    switch (encoding) {
    case TextEncoding::latin2:
        return "ISO-8859-2";
    case TextEncoding::latin3:
        return "ISO-8859-3";
    case TextEncoding::latin4:
        return "ISO-8859-4";
    case TextEncoding::cyrillic:
        return "ISO-8859-5";
    case TextEncoding::arabic:
        return "ISO-8859-6";
    case TextEncoding::greek:
        return "ISO-8859-7";
    case TextEncoding::hebrew:
        return "ISO-8859-8";
    case TextEncoding::latin5:
        return "ISO-8859-9";
    case TextEncoding::latin9:
        return "ISO-8859-15";
    case TextEncoding::thai:
        return "TIS-620";
    case TextEncoding::jisX0208:
    case TextEncoding::jisX0212:
        return "EUC-JP";
    case TextEncoding::ksX1001:
        return "EUC-KR";
    case TextEncoding::gb2312:
        return "GB2312";
    case TextEncoding::gbk:
        return "GBK";
    case TextEncoding::gb18030:
        break;
    }
    return "GB18030";
}

iconv_t Converter(std::intptr_t handle) { return reinterpret_cast<iconv_t>(handle); } // NOLINT

} // namespace

TextCodec::TextCodec(TextEncoding encoding)
    : m_encoding(encoding), m_handle(reinterpret_cast<std::intptr_t>(::iconv_open("UTF-32BE", NameOf(encoding)))) {}

TextCodec::~TextCodec() {
    if (IsAvailable())
        ::iconv_close(Converter(m_handle));
}

bool TextCodec::IsAvailable() const { return m_handle != kNone; }

char32_t TextCodec::Decode(const unsigned char* bytes, std::size_t size) const {
    std::array<char, 8> in{};
    if (!IsAvailable() || size == 0 || size > 4)
        return 0;
    // The sets of 94 x 94 characters are asked for in their EUC form.
    std::size_t count = 0;
    if (m_encoding == TextEncoding::jisX0212)
        in[count++] = static_cast<char>(0x8F);
    const bool high = m_encoding >= TextEncoding::jisX0208 && m_encoding <= TextEncoding::gb2312;
    for (std::size_t i = 0; i < size; ++i)
        in[count++] = static_cast<char>(high ? bytes[i] | 0x80 : bytes[i]);

    std::array<char, 16> out{};
    char* from = in.data();
    char* to = out.data();
    std::size_t room = out.size();
    ::iconv(Converter(m_handle), nullptr, nullptr, nullptr, nullptr);
    if (::iconv(Converter(m_handle), &from, &count, &to, &room) != 0 || count != 0 || out.size() - room != 4)
        return 0;
    char32_t code = 0;
    for (std::size_t i = 0; i < 4; ++i)
        code = (code << 8) | static_cast<unsigned char>(out[i]);
    return code == 0xFFFD ? 0 : code;
}

} // namespace vdicom::platform

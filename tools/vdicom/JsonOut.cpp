#include "JsonOut.h"

#include "Output.h"
#include "Vr.h"

#define RAPIDJSON_HAS_STDSTRING 0
#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <deque>
#include <filesystem>

namespace program {

static_assert(std::endian::native == std::endian::little, "InlineBinary is little endian, values come in host order");

namespace {

/// What rapidjson writes to.
class JsonStream {
public:
    using Ch = char;
    explicit JsonStream(Output& out) : m_out(out) {}
    void Put(char c) { m_out.Put(c); }
    void Flush() {}
    Output& Out() { return m_out; }

private:
    Output& m_out;
};

/// How much of a binary value is in memory at once: a multiple of three, so that base64 pieces join, and of eight.
constexpr std::size_t kPiece = 24 * 1024;
/// Texts of code strings and numbers up to here are read in one go.
constexpr std::size_t kWholeText = 64 * 1024;

constexpr std::string_view kUtf8 = "ISO_IR 192";

std::string_view TrimEnd(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0'))
        text.remove_suffix(1);
    return text;
}

std::string_view Trim(std::string_view text) {
    text = TrimEnd(text);
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    return text;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The number that a DS or IS value stands for, in JSON's grammar; empty when it stands for none.
std::string_view NumberToken(std::string_view text, bool integer, char (&room)[80]) {
    if (text.empty() || text.size() > 64)
        return {};
    char* to = room;
    std::size_t at = 0;
    if (text[at] == '+' || text[at] == '-') {
        if (text[at] == '-')
            *to++ = '-';
        ++at;
    }
    const std::size_t digits = at;
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    std::string_view whole = text.substr(digits, at - digits);
    std::string_view fraction;
    bool point = false;
    if (!integer && at < text.size() && text[at] == '.') {
        point = true;
        const std::size_t start = ++at;
        while (at < text.size() && IsDigit(text[at]))
            ++at;
        fraction = text.substr(start, at - start);
    }
    if (whole.empty() && (!point || fraction.empty()))
        return {};
    while (whole.size() > 1 && whole.front() == '0')
        whole.remove_prefix(1);
    if (whole.empty())
        whole = "0";
    to = std::copy(whole.begin(), whole.end(), to);
    if (!fraction.empty()) {
        *to++ = '.';
        to = std::copy(fraction.begin(), fraction.end(), to);
    }
    if (!integer && at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        *to++ = 'e';
        ++at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-'))
            *to++ = text[at++];
        const std::size_t start = at;
        while (at < text.size() && IsDigit(text[at]))
            *to++ = text[at++];
        if (at == start)
            return {};
    }
    if (at != text.size())
        return {};
    const std::string_view token(room, static_cast<std::size_t>(to - room));
    // What a double cannot hold would change on its way through a JSON reader.
    if (integer)
        return whole.size() <= 15 ? token : std::string_view();
    double value = 0;
    const auto [end, error] = std::from_chars(room, to, value);
    return error == std::errc() && std::isfinite(value) ? token : std::string_view();
}

template <typename Number> Number Take(const unsigned char* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

std::string FileUri(const std::string& path) {
    if (path.empty())
        return {};
    std::error_code error;
    const std::u8string absolute = std::filesystem::absolute(std::filesystem::u8path(path), error).generic_u8string();
    if (error)
        return {};
    std::string uri = absolute.starts_with(u8"/") ? "file://" : "file:///";
    for (const char8_t c : absolute) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || std::strchr("-._~/:", byte) != nullptr)
            uri += static_cast<char>(byte);
        else
            uri += fmt::format("%{:02X}", byte);
    }
    return uri;
}

} // namespace

class JsonOut::Base {
public:
    virtual ~Base() = default;
    virtual std::size_t Write(const std::vector<TagPath>& paths, const std::string& path) = 0;
    virtual void End() = 0;
};

namespace {

template <typename Writer> class Walker final : public JsonOut::Base {
public:
    Walker(VDicomDS& ds, Output& out, const JsonOptions& options, bool array)
        : m_ds(ds), m_out(out), m_options(options), m_array(array), m_stream(out), m_writer(m_stream), m_texts(ds) {
        if (m_array)
            m_writer.StartArray();
    }

    std::size_t Write(const std::vector<TagPath>& paths, const std::string& path) override {
        m_path = path;
        m_uri.clear();
        m_failed = 0;
        m_texts.StartDataSet();
        const Selection::Level level = Selection::Start(paths);
        WriteObject(nullptr, 0, paths.empty() ? nullptr : &level);
        if (!m_array)
            m_out.Put('\n');
        return m_failed;
    }

    void End() override {
        if (!m_array)
            return;
        m_writer.EndArray();
        m_out.Put('\n');
    }

private:
    void WriteObject(DICOMELEMENT* parent, std::size_t depth, const Selection::Level* level) {
        // The deque never moves what is in it: references stay good while deeper levels are added.
        while (m_levels.size() < 2 * depth + 2)
            m_levels.emplace_back();
        Selection::Level& inside = m_levels[2 * depth];
        m_writer.StartObject();
        VDicomULong previous = DICOM_UNDEFINED;
        for (DICOMELEMENT* e = parent ? FirstChild(parent) : m_ds.GetFirstElement(nullptr, 1, 1); e && !m_out.Failed();
             e = NextSibling(e)) {
            // Names in an object are unique: of elements with the same tag the first counts.
            if (e->nTag == previous || IsGroupLength(e->nTag) || (IsMeta(e->nTag) && !m_options.meta))
                continue;
            previous = e->nTag;
            Selection::Hit hit = Selection::Hit::whole;
            if (level) {
                hit = Selection::Match(m_ds, *level, parent, e, inside);
                if (hit == Selection::Hit::none)
                    continue;
            }
            WriteElement(e, parent, depth, hit == Selection::Hit::below ? &inside : nullptr);
        }
        m_writer.EndObject();
    }

    void WriteElement(DICOMELEMENT* e, const DICOMELEMENT* parent, std::size_t depth, const Selection::Level* inside) {
        char key[8];
        for (unsigned int i = 0; i < 8; ++i)
            key[i] = "0123456789ABCDEF"[(e->nTag >> (28 - 4 * i)) & 15];
        m_writer.Key(key, 8);
        m_writer.StartObject();
        m_writer.Key("vr", 2);
        const VrNature nature = NatureOf(e->nVR);
        const DICOMELEMENT* first = FirstChild(e);
        const bool fragments = first && !HasChildren(first) && first->nTag == kItem;
        unsigned short code = nature.kind == Kind::unknown ? vr::UN : e->nVR;
        if (HasChildren(e) && !fragments)
            code = vr::SQ; // a UN of undefined length that turned out to be a sequence
        const char letters[2] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
        m_writer.String(letters, 2);
        if (fragments)
            WriteFragments(e);
        else if (first)
            WriteItems(e, depth, inside);
        else if (!HasChildren(e) && e->nLength > 0)
            WriteValue(e, parent, nature);
        m_writer.EndObject();
    }

    void WriteItems(DICOMELEMENT* e, std::size_t depth, const Selection::Level* inside) {
        Selection::Level& children = m_levels[2 * depth + 1];
        m_writer.Key("Value", 5);
        m_writer.StartArray();
        VDicomULong number = 0;
        for (DICOMELEMENT* item = FirstChild(e); item && !m_out.Failed(); item = NextSibling(item), ++number) {
            Selection::Hit hit = Selection::Hit::whole;
            if (inside)
                hit = Selection::MatchItem(*inside, number, children);
            if (hit == Selection::Hit::none || depth >= m_options.depth) {
                // Items keep their numbers.
                m_writer.StartObject();
                m_writer.EndObject();
                continue;
            }
            WriteObject(item, depth + 1, hit == Selection::Hit::below ? &children : nullptr);
        }
        m_writer.EndArray();
    }

    void WriteValue(DICOMELEMENT* e, const DICOMELEMENT* parent, const VrNature& nature) {
        switch (nature.kind) {
        case Kind::text:
        case Kind::longText:
        case Kind::uri:
            WriteTexts(e, nature);
            break;
        case Kind::code:
            if (e->nTag == kSpecificCharacterSet)
                WriteCharacterSet(e, parent);
            else if (e->nLength <= kWholeText)
                WriteTexts(e, nature);
            else
                WriteManyCodes(e);
            break;
        case Kind::number:
            WriteNumbers(e, nature);
            break;
        default:
            WriteBinary(e);
        }
    }

    void WriteCharacterSet(DICOMELEMENT* e, const DICOMELEMENT* parent) {
        if (parent)
            m_texts.NoteCharacterSet(e);
        OpenValue();
        m_writer.String(kUtf8.data(), static_cast<rapidjson::SizeType>(kUtf8.size()));
        m_writer.EndArray();
    }

    void WriteTexts(DICOMELEMENT* e, const VrNature& nature) {
        const TextReader::Result result = m_texts.Text(e, std::size_t{0} - 1);
        if (!result.read) {
            ++m_failed;
            return;
        }
        std::string_view rest = result.text;
        if (rest.empty() || (nature.trimFront && Trim(rest).empty()))
            return;
        OpenValue();
        if (nature.kind == Kind::longText || nature.kind == Kind::uri) {
            WriteString(rest);
        } else {
            for (;;) {
                const std::size_t end = std::min(rest.find('\\'), rest.size());
                WriteOne(e->nVR, nature.trimFront ? Trim(rest.substr(0, end)) : TrimEnd(rest.substr(0, end)));
                if (end == rest.size())
                    break;
                rest.remove_prefix(end + 1);
            }
        }
        m_writer.EndArray();
    }

    /// A code string or number list that is too long to be held whole; its single values are short.
    void WriteManyCodes(DICOMELEMENT* e) {
        OpenValue();
        std::string carried;
        for (VDicomULong at = 0; at < e->nLength && !m_out.Failed();) {
            const TextReader::Bytes bytes = m_texts.Raw(e, at, kPiece);
            if (!bytes.read) {
                ++m_failed;
                break;
            }
            at += static_cast<VDicomULong>(bytes.size);
            std::string_view rest(reinterpret_cast<const char*>(bytes.data), bytes.size);
            for (std::size_t end = rest.find('\\'); end != std::string_view::npos; end = rest.find('\\')) {
                carried += rest.substr(0, end);
                WriteOne(e->nVR, Trim(Ascii(carried)));
                carried.clear();
                rest.remove_prefix(end + 1);
            }
            carried += rest;
        }
        WriteOne(e->nVR, Trim(Ascii(carried)));
        m_writer.EndArray();
    }

    static std::string& Ascii(std::string& text) {
        for (char& c : text)
            c = static_cast<unsigned char>(c) < 0x80 ? c : '?';
        return text;
    }

    void WriteOne(unsigned short code, std::string_view value) {
        if (code == vr::PN) {
            WritePersonName(value);
            return;
        }
        if (value.empty()) {
            m_writer.Null();
            return;
        }
        if (code == vr::DS || code == vr::IS) {
            char room[80];
            const std::string_view token = NumberToken(value, code == vr::IS, room);
            if (!token.empty()) {
                m_writer.RawValue(token.data(), token.size(), rapidjson::kNumberType);
                return;
            }
        }
        WriteString(value);
    }

    void WritePersonName(std::string_view name) {
        constexpr std::array<std::string_view, 3> groups = {"Alphabetic", "Ideographic", "Phonetic"};
        bool open = false;
        for (const std::string_view group : groups) {
            const std::size_t end = group == groups.back() ? name.size() : std::min(name.find('='), name.size());
            const std::string_view text = Trim(name.substr(0, end));
            name.remove_prefix(std::min(end + 1, name.size()));
            if (text.empty())
                continue;
            if (!open)
                m_writer.StartObject();
            open = true;
            m_writer.Key(group.data(), static_cast<rapidjson::SizeType>(group.size()));
            WriteString(text);
        }
        if (open)
            m_writer.EndObject();
        else
            m_writer.Null();
    }

    void WriteNumbers(DICOMELEMENT* e, const VrNature& nature) {
        const std::size_t unit = nature.unit;
        const std::size_t whole = e->nLength - e->nLength % unit;
        if (whole == 0)
            return;
        OpenValue();
        for (std::size_t at = 0; at < whole && !m_out.Failed();) {
            const TextReader::Bytes bytes = m_texts.Raw(e, static_cast<VDicomULong>(at), std::min(kPiece, whole - at));
            if (!bytes.read) {
                ++m_failed;
                break;
            }
            for (std::size_t i = 0; i + unit <= bytes.size; i += unit)
                WriteNumber(e->nVR, bytes.data + i);
            at += bytes.size;
        }
        m_writer.EndArray();
    }

    void WriteNumber(unsigned short code, const unsigned char* bytes) {
        switch (code) {
        case vr::US:
            m_writer.Uint(Take<std::uint16_t>(bytes));
            break;
        case vr::SS:
            m_writer.Int(Take<std::int16_t>(bytes));
            break;
        case vr::UL:
            m_writer.Uint(Take<std::uint32_t>(bytes));
            break;
        case vr::SL:
            m_writer.Int(Take<std::int32_t>(bytes));
            break;
        case vr::SV:
            WriteWide(Take<std::int64_t>(bytes), Take<std::int64_t>(bytes) < 0 ? -kExact : kExact);
            break;
        case vr::UV:
            WriteWide(Take<std::uint64_t>(bytes), std::uint64_t{kExact});
            break;
        case vr::FL:
            WriteReal(static_cast<double>(Take<float>(bytes)));
            break;
        case vr::FD:
            WriteReal(Take<double>(bytes));
            break;
        default: { // AT
            char text[8];
            const VDicomULong tag = VDicomTagCode(Take<std::uint16_t>(bytes), Take<std::uint16_t>(bytes + 2));
            for (unsigned int i = 0; i < 8; ++i)
                text[i] = "0123456789ABCDEF"[(tag >> (28 - 4 * i)) & 15];
            m_writer.String(text, 8);
        }
        }
    }

    /// Integers beyond 53 bits are texts: many JSON readers would round them.
    template <typename Integer> void WriteWide(Integer number, Integer limit) {
        char text[24];
        const auto size = static_cast<std::size_t>(std::to_chars(text, text + sizeof text, number).ptr - text);
        if (number < 0 ? number >= limit : number <= limit)
            m_writer.RawValue(text, size, rapidjson::kNumberType);
        else
            m_writer.String(text, static_cast<rapidjson::SizeType>(size));
    }

    void WriteReal(double number) {
        if (!std::isfinite(number)) {
            WriteString(std::isnan(number) ? "NaN" : number > 0 ? "Infinity" : "-Infinity");
            return;
        }
        if (number == 0 && std::signbit(number)) {
            m_writer.RawValue("-0.0", 4, rapidjson::kNumberType);
            return;
        }
        char text[32];
        const auto size = static_cast<std::size_t>(std::to_chars(text, text + sizeof text, number).ptr - text);
        m_writer.RawValue(text, size, rapidjson::kNumberType);
    }

    void WriteBinary(DICOMELEMENT* e) {
        if (e->nLength > m_options.bulkLimit) {
            WriteUri(e);
            return;
        }
        m_writer.Key("InlineBinary", 12);
        OpenBase64();
        AddValue(e);
        CloseBase64();
    }

    /// Encapsulated pixel data as they stand in the file: every item with its header, the offset table first.
    void WriteFragments(DICOMELEMENT* e) {
        VDicomUInt64 size = 0;
        for (const DICOMELEMENT* item = FirstChild(e); item; item = NextSibling(item))
            size += 8 + VDicomUInt64{item->nLength};
        if (size > m_options.bulkLimit)
            return;
        m_writer.Key("InlineBinary", 12);
        OpenBase64();
        for (DICOMELEMENT* item = FirstChild(e); item && !m_out.Failed(); item = NextSibling(item)) {
            unsigned char header[8] = {0xFE, 0xFF, 0x00, 0xE0};
            const std::uint32_t length = item->nLength;
            std::memcpy(header + 4, &length, 4);
            AddBase64(header, 8);
            AddValue(item);
        }
        CloseBase64();
    }

    void AddValue(DICOMELEMENT* e) {
        for (VDicomULong at = 0; at < e->nLength && !m_out.Failed();) {
            const TextReader::Bytes bytes = m_texts.Raw(e, at, kPiece);
            if (!bytes.read) {
                ++m_failed;
                return;
            }
            AddBase64(bytes.data, bytes.size);
            at += static_cast<VDicomULong>(bytes.size);
        }
    }

    /// Where a value that was left out stands in its file, if it stands there in one piece.
    void WriteUri(DICOMELEMENT* e) {
        unsigned short flags = 0;
        m_ds.GetInfoDS(nullptr, &flags);
        if (m_uri.empty())
            m_uri = FileUri(m_path);
        if (m_uri.empty() || (flags & DICOM_FLAG_DEFLATED) != 0 || e->nCountPiece != 1)
            return;
        const std::string uri = fmt::format("{}?offset={}&length={}", m_uri, e->pPieceOffset[0], e->nLength);
        m_writer.Key("BulkDataURI", 11);
        WriteString(uri);
    }

    void OpenValue() {
        m_writer.Key("Value", 5);
        m_writer.StartArray();
    }

    void WriteString(std::string_view text) {
        m_writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    }

    // A string in pieces: the writer puts what comes before its opening quote, the rest goes straight to the output.
    void OpenBase64() {
        m_writer.RawValue("\"", 1, rapidjson::kStringType);
        m_pending = 0;
    }

    void AddBase64(const unsigned char* bytes, std::size_t size) {
        for (; size > 0 && m_pending > 0; --size) {
            m_group[m_pending++] = *bytes++;
            if (m_pending == 3) {
                Encode(m_out.Reserve(4), m_group.data());
                m_out.Advance(4);
                m_pending = 0;
            }
        }
        while (size >= 3) {
            const std::size_t groups = std::min(size / 3, Output::kReserve / 4);
            char* to = m_out.Reserve(groups * 4);
            for (std::size_t i = 0; i < groups; ++i)
                Encode(to + 4 * i, bytes + 3 * i);
            m_out.Advance(groups * 4);
            bytes += groups * 3;
            size -= groups * 3;
        }
        while (size-- > 0)
            m_group[m_pending++] = *bytes++;
    }

    void CloseBase64() {
        if (m_pending > 0) {
            std::fill(m_group.begin() + static_cast<std::ptrdiff_t>(m_pending), m_group.end(), '\0');
            char text[4];
            Encode(text, m_group.data());
            for (std::size_t i = m_pending + 1; i < 4; ++i)
                text[i] = '=';
            m_out.Put({text, 4});
        }
        m_out.Put('"');
    }

    static void Encode(char* to, const unsigned char* from) {
        constexpr const char* letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        to[0] = letters[from[0] >> 2];
        to[1] = letters[((from[0] & 3) << 4) | (from[1] >> 4)];
        to[2] = letters[((from[1] & 15) << 2) | (from[2] >> 6)];
        to[3] = letters[from[2] & 63];
    }

    static constexpr std::int64_t kExact = (std::int64_t{1} << 53) - 1;

    VDicomDS& m_ds;
    Output& m_out;
    JsonOptions m_options;
    bool m_array;
    JsonStream m_stream;
    Writer m_writer;
    TextReader m_texts;
    std::string m_path;
    std::string m_uri;
    std::size_t m_failed = 0;
    std::size_t m_pending = 0;
    std::array<unsigned char, 3> m_group{};
    std::deque<Selection::Level> m_levels; ///< two for each depth
};

} // namespace

JsonOut::JsonOut(VDicomDS& ds, Output& out, const JsonOptions& options, bool array) {
    using Compact = rapidjson::Writer<JsonStream>;
    using Pretty = rapidjson::PrettyWriter<JsonStream>;
    if (options.pretty)
        m_writer = std::make_unique<Walker<Pretty>>(ds, out, options, array);
    else
        m_writer = std::make_unique<Walker<Compact>>(ds, out, options, array);
}

JsonOut::~JsonOut() = default;

std::size_t JsonOut::Write(const std::vector<TagPath>& paths, const std::string& path) {
    return m_writer->Write(paths, path);
}

void JsonOut::End() { m_writer->End(); }

} // namespace program

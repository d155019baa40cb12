#include "Answer.h"

#include "Attributes.h"
#include "Matching.h"

#include <algorithm>
#include <charconv>

namespace archive {

namespace vr = vdicom::vr;

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

Answer::Answer(VDicomDS& ds, const std::string& characterSet) : m_ds(ds), m_characterSet(characterSet) { ds.ResetDS(); }

void Answer::Add(DICOMELEMENT* item, VDicomULong tag, unsigned short vr, std::string_view text) {
    m_entries.push_back({item, tag, vr, text});
    m_ascii = m_ascii && IsAscii(text);
}

bool Answer::Set(const Entry& entry) {
    DICOMELEMENT* e = m_ds.FindFirstElement(entry.item, entry.tag, 1);
    if (e == nullptr)
        e = m_ds.InsertElement(entry.item, entry.item == nullptr ? 0 : 1, entry.tag, entry.vr, 0, 0);
    if (e == nullptr)
        return false;
    if (entry.text.empty())
        return true;
    if (entry.vr == vr::US || entry.vr == vr::SS) {
        std::vector<short> numbers;
        AnyValue(entry.text, [&](std::string_view value) {
            int number = 0;
            std::from_chars(value.data(), value.data() + value.size(), number);
            numbers.push_back(static_cast<short>(number));
            return false;
        });
        return m_ds.SetShortValue(e, numbers.data(), static_cast<VDicomULong>(numbers.size())) != 0;
    }
    if (m_ascii)
        return m_ds.SetBinaryValue(e, entry.text.data(), static_cast<VDicomULong>(entry.text.size())) != 0;
    m_text = entry.text;
    return m_ds.SetUtf8Value(e, m_text.c_str()) != 0;
}

bool Answer::WriteAll() {
    return std::all_of(m_entries.begin(), m_entries.end(), [this](const Entry& entry) { return Set(entry); });
}

bool Answer::Write() {
    if (m_ascii)
        return WriteAll();
    const auto setCharacterSet = [this](const std::string& name) {
        DICOMELEMENT* e = m_ds.FindFirstElement(nullptr, tag::kCharacterSet, 1);
        if (e == nullptr)
            e = m_ds.InsertElement(nullptr, 0, tag::kCharacterSet, vr::CS, 0, 0);
        return e != nullptr && m_ds.SetBinaryValue(e, name.data(), static_cast<VDicomULong>(name.size())) != 0;
    };
    if (!m_characterSet.empty() && setCharacterSet(m_characterSet) && WriteAll())
        return true;
    return setCharacterSet("ISO_IR 192") && WriteAll();
}

} // namespace archive

/// @file AssociateRecord.h
/// The contents of an A-ASSOCIATE-RQ or A-ASSOCIATE-AC PDU. Pure: knows neither the PDU's bytes nor a connection.
///
/// Texts and buffers keep their addresses until they are changed themselves. Operations throw std::bad_alloc and then
/// have changed nothing.
#pragma once

#include "VDicomTypes.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace vdicom {

constexpr std::size_t kMaxTitle = 64; ///< characters of a UID, an AE title or a name
constexpr std::size_t kMaxVersionName = 16;

/// A text in place, zero-terminated.
template <std::size_t Most> struct FixedText {
    char chars[Most + 1] = {};
    std::uint8_t size = 0;

    std::string_view View() const { return {chars, size}; }
    static bool Fits(const char* text) { return text != nullptr && std::memchr(text, 0, Most + 1) != nullptr; }
    /// Takes at most the first `Most` characters.
    void Assign(std::string_view text) {
        size = static_cast<std::uint8_t>(std::min(text.size(), Most));
        if (size != 0)
            std::memmove(chars, text.data(), size); // it may be this text itself
        chars[size] = '\0';
    }
};

using Title = FixedText<kMaxTitle>;
using OwnedText = std::unique_ptr<char[]>;

OwnedText CopyText(std::string_view text);

struct PresentationContext {
    std::uint8_t id = 0;
    std::uint8_t result = 0;
    std::uint8_t userRole = 0;
    std::uint8_t providerRole = 0;
    unsigned int roleSelected = 0;
    Title abstractSyntax;
    std::vector<OwnedText> transferSyntaxes;
    std::vector<unsigned char> extended; ///< SOP class extended negotiation
};

/// An item of the user information as it stands in the PDU.
struct UserItem {
    std::uint8_t type = 0;
    std::vector<unsigned char> data;
};

struct AssociateRecord {
    unsigned int request = 0;
    std::uint16_t version = 0;
    Title called;
    Title calling;
    Title application;
    unsigned int hasMaxLength = 0;
    VDicomULong maxLength = 0;
    unsigned int hasImplementClass = 0;
    Title implementClass;
    unsigned int hasAsyncOperations = 0;
    std::uint16_t invoked = 0;
    std::uint16_t performed = 0;
    unsigned int hasImplementVersion = 0;
    FixedText<kMaxVersionName> implementVersion;
    std::vector<std::unique_ptr<PresentationContext>> contexts; ///< in order of insertion; change it below only
    std::vector<UserItem> userItems;

    explicit AssociateRecord(unsigned int isRequest) { Reset(isRequest); }
    void Reset(unsigned int isRequest);

    PresentationContext* Find(std::uint8_t id);
    const PresentationContext* Find(std::uint8_t id) const;
    const PresentationContext* FindAbstract(std::string_view uid) const;
    /// Null when the ID is in use.
    PresentationContext* Add(std::uint8_t id, std::uint8_t result, std::string_view abstractSyntax);
    void Remove(std::uint8_t id);
    /// False when the ID is in use or there is no such position.
    bool Rename(std::size_t index, std::uint8_t id);

private:
    std::size_t IndexOf(std::uint8_t id) const;

    std::bitset<256> m_inUse;
};

} // namespace vdicom

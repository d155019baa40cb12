/// @file StorageClasses.h
/// The presentation contexts in which a client of C-GET offers to receive objects.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace program {

/// What a context offers: a SOP class, and transfer syntaxes of which the peer takes one.
struct StorageOffer {
    std::string classUid;
    std::vector<std::string> syntaxes;
};

/// Storage classes of today's edition, those that are met most often first; retired ones last.
std::vector<std::string> StorageClasses();

/// Contexts for classes, at most `most`. A peer takes one syntax for a context before it looks at its objects, so where
/// there is room every compressed syntax has a context of its own; with less room, all of them share one; with none,
/// they share that of the uncompressed ones.
/// @param left receives how many classes have no context
std::vector<StorageOffer> OffersFor(const std::vector<std::string>& classes, std::size_t most, std::size_t& left);

/// The SOP class UID that a text means: a UID, or the keyword or name of a storage class. Empty: none.
std::string FindStorageClass(const std::string& text);

} // namespace program

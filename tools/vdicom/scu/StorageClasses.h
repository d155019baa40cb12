/// @file StorageClasses.h
/// The presentation contexts in which a client of C-GET offers to receive objects.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace program {

/// What a context offers: a SOP class, and transfer syntaxes of which the peer takes one.
struct StorageOffer {
    std::string classUid;
    std::vector<std::string> syntaxes;
};

/// SOP classes of objects to be fetched, with the transfer syntaxes that the archive has them in; none: it did not say.
using StorageNeeds = std::map<std::string, std::set<std::string>>;
/// Adds needs to others; a class whose syntaxes one of them does not know is not known.
void AddNeeds(StorageNeeds& sum, const StorageNeeds& more);

/// Storage classes of today's edition, those that are met most often first; retired ones last.
std::vector<std::string> StorageClasses();

/// Contexts in which a peer can send each object as it has it: a peer takes one syntax for a context before it looks at
/// its objects, so the syntaxes that it named, or else all compressed ones, have a context of their own.
/// @return none: there are more than `most`
std::vector<StorageOffer> OffersApart(const StorageNeeds& needs, std::size_t most);
/// The same where there is room. With less room, all compressed syntaxes of a class share a context; with none, they
/// share that of the uncompressed ones.
/// @param left receives how many classes, the last ones, have no context
std::vector<StorageOffer> OffersFor(const std::vector<std::string>& classes, std::size_t most, std::size_t& left);

/// The SOP class UID that a text means: a UID, or the keyword or name of a storage class. Empty: none.
std::string FindStorageClass(const std::string& text);

} // namespace program

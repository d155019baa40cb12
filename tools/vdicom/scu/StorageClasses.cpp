#include "scu/StorageClasses.h"

#include "scu/Uid.h"

#include "VDicomUID.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace program {

namespace {

constexpr std::string_view kUncompressed[] = {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2", "1.2.840.10008.1.2.1.99",
                                              "1.2.840.10008.1.2.2"};

// What hospitals seldom have: security and materials testing, protocols, implants, eye measurements, electrodes, volume
// presentations, the second generation of radiotherapy. Below the root of storage, or of services where it begins with
// a dot.
constexpr std::string_view kSeldom[] = {"501.", "601.",  "200.",  "201.",  "78.",    "79.",    "80.",  "81.",
                                        "82.",  "68.",   "90.",   "91.",   "9.7.",   "9.8.",   "11.6", "11.7",
                                        "11.9", "11.10", "11.11", "11.12", "481.1?", "481.2?", ".3",   ".4"};
constexpr std::string_view kServiceRoot = "1.2.840.10008.5.1.4", kStorageClassRoot = "1.2.840.10008.5.1.4.1.1.";
constexpr std::string_view kStorageRoot = "1.2.840.10008.5.1.4.";

/// Whether a UID begins with a row of kSeldom; its '?' stands for one character more.
bool IsSeldom(std::string_view uid) {
    const auto matches = [uid](std::string_view row) {
        const std::string_view root = row.front() == '.' ? kServiceRoot : kStorageClassRoot;
        if (!uid.starts_with(root))
            return false;
        const std::string_view rest = uid.substr(root.size());
        const bool needsMore = row.back() == '?';
        const std::string_view start = row.substr(0, row.size() - (needsMore ? 1 : 0));
        return rest.starts_with(start) && (!needsMore || rest.size() > start.size());
    };
    return std::any_of(std::begin(kSeldom), std::end(kSeldom), matches);
}

int RankOf(const DICOMCURRENTUID& row) {
    if (row.bRetired != 0)
        return 2;
    return IsSeldom(row.pszCode) ? 1 : 0;
}

bool IsStorageClass(const DICOMCURRENTUID& row) {
    return std::string_view(row.pszType) == "SOP Class" && std::string_view(row.pszCode).starts_with(kStorageRoot) &&
           std::string_view(row.pszName).find("Storage") != std::string_view::npos;
}

/// Syntaxes of fragments that a file can hold, retired ones left out.
std::vector<std::string> CompressedSyntaxes() {
    std::vector<std::string> found;
    DICOMCURRENTUID row;
    for (VDicomULong i = 0; VDicomUID::GetCurrent(i, &row); ++i) {
        const std::string_view uid = row.pszCode;
        const bool isCompressed = uid.starts_with("1.2.840.10008.1.2.4.") || uid == "1.2.840.10008.1.2.5" ||
                                  uid == "1.2.840.10008.1.2.8.1" || uid == "1.2.840.10008.1.2.1.98";
        const bool isReferenced = std::string_view(row.pszName).find("Referenced") != std::string_view::npos;
        if (std::string_view(row.pszType) == "Transfer Syntax" && isCompressed && !isReferenced && row.bRetired == 0)
            found.emplace_back(uid);
    }
    return found;
}

} // namespace

std::vector<std::string> StorageClasses() {
    std::array<std::vector<std::string>, 3> ranks;
    DICOMCURRENTUID row;
    for (VDicomULong i = 0; VDicomUID::GetCurrent(i, &row); ++i) {
        if (IsStorageClass(row))
            ranks[static_cast<std::size_t>(RankOf(row))].emplace_back(row.pszCode);
    }
    std::vector<std::string> all;
    for (const std::vector<std::string>& rank : ranks)
        all.insert(all.end(), rank.begin(), rank.end());
    return all;
}

void AddNeeds(StorageNeeds& sum, const StorageNeeds& more) {
    for (const auto& [classUid, syntaxes] : more) {
        const auto [at, isNew] = sum.try_emplace(classUid, syntaxes);
        if (syntaxes.empty())
            at->second.clear();
        else if (!isNew && !at->second.empty())
            at->second.insert(syntaxes.begin(), syntaxes.end());
    }
}

std::vector<StorageOffer> OffersApart(const StorageNeeds& needs, std::size_t most) {
    const std::vector<std::string> compressed = CompressedSyntaxes();
    // Uncompressed ones share a context where the room demands it: no pixel is lost between them.
    for (const bool isEachAlone : {true, false}) {
        std::vector<StorageOffer> offers;
        for (const auto& [classUid, syntaxes] : needs) {
            if (offers.size() > most)
                break;
            std::vector<std::string> others;
            for (const std::string_view syntax : kUncompressed) {
                const std::string uid(syntax);
                if (syntaxes.empty() && isEachAlone)
                    offers.push_back({classUid, {uid}});
                else if (syntaxes.count(uid) == 0)
                    others.push_back(uid);
            }
            for (const std::string& syntax : syntaxes) {
                if (offers.size() > most)
                    break;
                offers.push_back({classUid, {syntax}});
            }
            if (!others.empty())
                offers.push_back({classUid, others});
            for (const std::string& syntax : syntaxes.empty() ? compressed : std::vector<std::string>())
                offers.push_back({classUid, {syntax}});
        }
        if (offers.size() <= most)
            return offers;
    }
    return {};
}

std::vector<StorageOffer> OffersFor(const std::vector<std::string>& classes, std::size_t most, std::size_t& left) {
    StorageNeeds needs;
    for (const std::string& classUid : classes)
        needs[classUid];
    left = 0;
    std::vector<StorageOffer> offers = OffersApart(needs, most);
    if (!offers.empty())
        return offers;

    const std::vector<std::string> uncompressed(std::begin(kUncompressed), std::end(kUncompressed));
    const std::vector<std::string> compressed = CompressedSyntaxes();
    std::vector<std::string> all = uncompressed;
    all.insert(all.end(), compressed.begin(), compressed.end());
    const bool areApart = classes.size() * 2 <= most;
    const std::size_t offered = std::min(classes.size(), most);
    for (std::size_t i = 0; i < offered; ++i) {
        offers.push_back({classes[i], areApart ? uncompressed : all});
        if (areApart)
            offers.push_back({classes[i], compressed});
    }
    left = classes.size() - offered;
    return offers;
}

std::string FindStorageClass(const std::string& text) {
    if (IsUid(text))
        return text;
    DICOMCURRENTUID row;
    for (VDicomULong i = 0; VDicomUID::GetCurrent(i, &row); ++i) {
        const std::string name = row.pszName;
        if (IsStorageClass(row) && row.bRetired == 0 &&
            (text == name || text == row.pszKeyword || text + " Storage" == name || text + " Image Storage" == name))
            return row.pszCode;
    }
    return {};
}

} // namespace program

#include "Worklist.h"

#include "Record.h"
#include "WorklistItem.h"

#include <filesystem>
#include <set>
#include <system_error>

namespace archive {

namespace fs = std::filesystem;
namespace vr = vdicom::vr;

/// A worklist file in memory.
struct WorklistEntry {
    fs::file_time_type time;
    std::uintmax_t size = 0;
    bool isUsable = false;
    std::vector<unsigned char> bytes; // before the data set that refers to them
    VDicomDS ds;
};

namespace {

constexpr std::uintmax_t kLargestFile = std::uintmax_t{16} << 20;
constexpr std::size_t kStepsAtOnce = 256;

// @return empty, or why the file cannot be used
std::string Load(const std::string& path, WorklistEntry& entry) {
    if (entry.size > kLargestFile)
        return "larger than 16 MiB, which no worklist file is";
    VDicomFile file;
    entry.bytes.resize(static_cast<std::size_t>(entry.size));
    if (file.Open(path.c_str(), DICOM_FILE_READ) == 0 ||
        file.Read(entry.bytes.data(), static_cast<VDicomULong>(entry.size)) == 0)
        return std::generic_category().message(file.GetError());
    const unsigned int error =
        entry.ds.LoadDSMemory(entry.bytes.data(), static_cast<VDicomULong>(entry.bytes.size()), 0);
    return error == DICOM_OK ? "" : GetErrorText(error);
}

// Keys of a level. Group lengths, the character set and the meta elements say nothing. Of a tag that is there twice
// the first counts.
Outcome ReadKeys(VDicomDS& ds, DICOMELEMENT* parent, std::vector<WorklistKey>& keys) {
    std::vector<char> scratch;
    std::string text;
    std::set<VDicomULong> known;
    DICOMELEMENT* e = parent == nullptr ? ds.GetFirstElement(nullptr, 1, 1) : ds.GetChildElement(parent, 1);
    for (; e != nullptr; e = ds.GetNextElement(e, 1, 1)) {
        if ((e->nTag >> 16) <= 2 || (e->nTag & 0xFFFF) == 0 || e->nTag == tag::kCharacterSet ||
            !known.insert(e->nTag).second)
            continue;
        WorklistKey& key = keys.emplace_back();
        key.tag = e->nTag;
        key.vr = e->nVR;
        key.isSequence = e->nVR == vr::SQ;
        if (key.isSequence) {
            DICOMELEMENT* item = ds.GetChildElement(e, 1);
            if (item == nullptr)
                continue;
            if (Outcome outcome = ReadKeys(ds, item, key.item); !outcome.IsSuccess())
                return outcome;
            continue;
        }
        ReadText(ds, e, e->nVR, scratch, text);
        const std::optional<Key> parsed = Key::Parse(e->nVR, text);
        if (!parsed)
            return {status::kUnableToProcess, std::string(ds.GetNameElement(e)) + " cannot be understood"};
        key.key = *parsed;
    }
    return {};
}

const WorklistKey* StepKey(const std::vector<WorklistKey>& keys) {
    for (const WorklistKey& key : keys)
        if (key.tag == kScheduledStep && key.isSequence)
            return &key;
    return nullptr;
}

} // namespace

Outcome Worklist::Scan() {
    std::map<std::string, std::shared_ptr<WorklistEntry>> found;
    std::error_code error;
    fs::directory_iterator file(m_folder, error);
    for (; !error && file != fs::directory_iterator(); file.increment(error)) {
        const std::string path = file->path().string();
        std::error_code ignored;
        if (file->path().filename().string().front() == '.' || !file->is_regular_file(ignored))
            continue;
        const fs::file_time_type time = file->last_write_time(ignored);
        const std::uintmax_t size = file->file_size(ignored);
        const auto known = m_entries.find(path);
        if (known != m_entries.end() && known->second->time == time && known->second->size == size) {
            found.insert(*known);
            continue;
        }
        const auto entry = std::make_shared<WorklistEntry>();
        entry->time = time;
        entry->size = size;
        const std::string reason = Load(path, *entry);
        entry->isUsable = reason.empty();
        if (!entry->isUsable && m_complaint)
            m_complaint(path, reason);
        found.emplace(path, entry);
    }
    if (error)
        return {status::kOutOfResources, "the worklist cannot be read: " + error.message()};
    m_entries.swap(found);
    return {};
}

Outcome Worklist::Start(VDicomDS& identifier, std::unique_ptr<WorklistFind>& find) {
    std::vector<WorklistKey> keys;
    if (Outcome outcome = ReadKeys(identifier, nullptr, keys); !outcome.IsSuccess())
        return outcome;
    if (Outcome outcome = Scan(); !outcome.IsSuccess())
        return outcome;
    std::string characterSet;
    if (DICOMELEMENT* e = identifier.FindFirstElement(nullptr, tag::kCharacterSet, 1)) {
        std::vector<char> scratch;
        ReadText(identifier, e, vr::CS, scratch, characterSet);
    }
    WorklistEntries entries;
    for (const auto& [path, entry] : m_entries)
        if (entry->isUsable)
            entries.push_back(entry);
    find = std::make_unique<WorklistFind>(std::move(entries), std::move(keys), std::move(characterSet));
    return {};
}

WorklistFind::WorklistFind(WorklistEntries entries, std::vector<WorklistKey> keys, std::string characterSet)
    : m_entries(std::move(entries)), m_keys(std::move(keys)), m_characterSet(std::move(characterSet)) {}

bool WorklistFind::Fill(VDicomDS& match, WorklistEntry& entry, DICOMELEMENT* step) {
    Answer answer(match, m_characterSet);
    ItemCopy copy(entry.ds, match, answer, step);
    return copy.Asked(nullptr, nullptr, m_keys) && answer.Write();
}

Step WorklistFind::Next(VDicomDS& match) {
    const WorklistKey* stepKey = StepKey(m_keys);
    for (Turn turn(kStepsAtOnce); m_entry < m_entries.size() && turn.GoesOn();) {
        WorklistEntry& entry = *m_entries[m_entry];
        DICOMELEMENT* steps = entry.ds.FindFirstElement(nullptr, kScheduledStep, 1);
        DICOMELEMENT* step = steps == nullptr ? nullptr : entry.ds.GetIndexElement(steps, m_step);
        // The attributes beside the steps are looked at once.
        if (step == nullptr || (m_step == 0 && !MatchesItem(entry.ds, nullptr, m_keys))) {
            ++m_entry;
            m_step = 0;
            continue;
        }
        ++m_step;
        if (stepKey != nullptr && !MatchesItem(entry.ds, step, stepKey->item))
            continue;
        if (!Fill(match, entry, step))
            throw std::bad_alloc();
        return Step::match;
    }
    return m_entry < m_entries.size() ? Step::busy : Step::done;
}

} // namespace archive

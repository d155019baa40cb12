// The index made anew from the files.
#include "Archive.h"
#include "Schema.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace archive {

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t kObjectsAtOnce = 1000;

struct FoundFile {
    fs::file_time_type time;
    std::string path; ///< within the archive
};

bool IsPrivate(const fs::path& path) { return path.filename() == ".vdicom"; }

std::string Within(const fs::path& root, const fs::path& path) {
    return path.lexically_relative(root).generic_string();
}

// The files below an entry of the archive's folder, which is a patient's usually: the oldest first, as they were
// stored. Folders that cannot be read, such as a file system's own, are passed over.
std::vector<FoundFile> FilesBelow(const fs::directory_entry& top, const fs::path& root,
                                  const FileComplaint& complaint) {
    std::vector<FoundFile> files;
    std::vector<fs::path> folders;
    const auto add = [&](const fs::directory_entry& entry) {
        std::error_code error;
        if (entry.is_symlink(error))
            return;
        if (entry.is_directory(error))
            folders.push_back(entry.path());
        else if (entry.is_regular_file(error))
            files.push_back({entry.last_write_time(error), Within(root, entry.path())});
    };
    add(top);
    while (!folders.empty()) {
        const fs::path folder = std::move(folders.back());
        folders.pop_back();
        std::error_code error;
        for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
             entry.increment(error))
            add(*entry);
        if (error && complaint)
            complaint(Within(root, folder), "the folder cannot be read: " + error.message());
    }
    std::sort(files.begin(), files.end(), [](const FoundFile& a, const FoundFile& b) {
        return a.time != b.time ? a.time < b.time : a.path < b.path;
    });
    return files;
}

template <class Each> void ForEachTop(const std::string& root, Each each) {
    for (const fs::directory_entry& entry : fs::directory_iterator(root))
        if (!IsPrivate(entry.path()))
            each(entry);
}

/// Fills a new index.
class Rebuilder {
public:
    Rebuilder(const std::string& root, Database& database, const ReindexProgress& progress,
              const FileComplaint& complaint)
        : m_root(root), m_index(database), m_progress(progress), m_complaint(complaint) {
        m_ds.SetLoadLimit(kLastIndexed);
    }

    /// @return false when the caller asked to stop
    bool Run() {
        ForEachTop(m_root, [this](const fs::directory_entry& top) {
            m_counts.total += FilesBelow(top, m_root, nullptr).size();
        });
        bool isGoingOn = true;
        ForEachTop(m_root, [&](const fs::directory_entry& top) {
            for (const FoundFile& file : FilesBelow(top, m_root, m_complaint)) {
                if (!isGoingOn)
                    return;
                Add(file.path, file.time);
                ++m_counts.seen;
                if (m_counts.seen % kObjectsAtOnce == 0)
                    m_index.Commit();
                isGoingOn = !m_progress || m_progress(m_counts);
            }
        });
        m_index.Commit();
        return isGoingOn;
    }

    const ReindexCounts& Counts() const { return m_counts; }

private:
    void Add(const std::string& path, fs::file_time_type time) {
        const std::string full = m_root + '/' + path;
        const unsigned int error = m_ds.LoadDS(full.c_str(), 0);
        if (error != DICOM_OK)
            return Fail(path, GetErrorText(error));
        Record record;
        if (const Outcome outcome = ReadRecord(m_ds, record); !outcome.IsSuccess())
            return Fail(path, outcome.comment);
        std::error_code ignored;
        if (const std::optional<std::string> other = m_index.Find(record.Get(tag::kInstance))) {
            ++m_counts.duplicates;
            // Files of other folders need not come in the order of their times.
            if (fs::last_write_time(m_root + '/' + *other, ignored) > time)
                return Complain(path, "older than " + *other + ", which has the same SOP Instance UID");
            Complain(*other, "replaced by the newer " + path);
        } else {
            ++m_counts.indexed;
        }
        m_index.Put(record, path, fs::file_size(full, ignored));
    }

    void Fail(const std::string& path, const std::string& reason) {
        ++m_counts.failed;
        Complain(path, reason);
    }

    void Complain(const std::string& path, const std::string& reason) const {
        if (m_complaint)
            m_complaint(path, reason);
    }

    std::string m_root;
    IndexWriter m_index;
    const ReindexProgress& m_progress;
    const FileComplaint& m_complaint;
    ReindexCounts m_counts;
    VDicomDS m_ds;
};

bool Build(const std::string& root, const std::string& path, const ReindexProgress& progress,
           const FileComplaint& complaint, ReindexCounts& counts) {
    Database database(path, Database::Mode::create);
    CreateSchema(database);
    database.Execute("PRAGMA synchronous = OFF");
    database.Execute("PRAGMA cache_size = -262144");
    bool isWhole = false;
    {
        Rebuilder rebuilder(root, database, progress, complaint);
        isWhole = rebuilder.Run();
        counts = rebuilder.Counts();
    }
    // Everything into the one file, and that onto the disk.
    database.Execute("PRAGMA synchronous = FULL");
    database.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
    return isWhole;
}

} // namespace

ReindexCounts Reindex(const std::string& folder, const ReindexProgress& progress, const FileComplaint& complaint) {
    const ArchiveFolder place(folder);
    const std::string path = place.NewIndex();
    ReindexCounts counts;
    try {
        RemoveIndex(path);
        if (!Build(place.Root(), path, progress, complaint, counts)) {
            RemoveIndex(path);
            return counts;
        }
        PutInPlace(path, place.Index());
        Journal(place.Journal()).Clear();
    } catch (const fs::filesystem_error& error) {
        throw ArchiveError((error.path1().empty() ? place.Root() : error.path1().string()) + ": " +
                           error.code().message());
    }
    return counts;
}

} // namespace archive

/// @file IndexWriter.h
/// Puts objects into the index. Everything since the last Commit is one transaction, which the first Put begins.
#pragma once

#include "Database.h"
#include "Record.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace archive {

/// folder/UID.dcm
std::string UsualFile(const std::string& folder, const std::string& instanceUid);

/// One thread, and one writer for an index. All members throw DatabaseError; call Rollback then.
class IndexWriter {
public:
    explicit IndexWriter(Database& database);

    /// The path within the archive of an object that is there, uncommitted ones included.
    std::optional<std::string> Find(const std::string& instanceUid);

    /// Whether a path within the archive is the file of an object other than `instanceUid`, which need not be there.
    /// Only files of unusual names are looked at: a usual one is that of its own UID.
    bool IsOfAnother(const std::string& path, const std::string& instanceUid);

    /// Adds an object, or replaces the one of its SOP Instance UID. The attributes of patient, study and series become
    /// those of the object; those that it leaves empty stay as they were.
    /// @param path within the archive @param size of the file in bytes
    void Put(const Record& record, const std::string& path, std::uint64_t size);

    void Commit();
    void Rollback();
    /// Whether the next Commit outlasts a power failure. Not between Put and Commit.
    void SetLasting(bool lasting);

private:
    struct Row {
        std::int64_t id = 0;
        std::vector<std::string> values; ///< of its columns, to see changes at once
        std::string folder;              ///< of a series
    };
    /// Where an object was.
    struct Removed {
        std::int64_t id = 0; ///< 0: nowhere
        std::int64_t series = 0;
        std::string classUid;
    };
    /// Rows of a level that were used lately.
    using Cache = std::unordered_map<std::string, Row>;

    void Begin();
    Row& RowOf(Level level, std::int64_t parent, const Record& record, const std::string& path);
    bool Look(Level level, std::int64_t parent, std::string_view key, Row& row);
    void Insert(Level level, std::int64_t parent, std::string_view key, Row& row);
    bool Merge(Level level, const Record& record, Row& row) const;
    void Update(Level level, const Row& row);
    void PutNames(std::int64_t patient, const std::string& name);
    void PutClass(std::int64_t series, const std::string& classUid);
    void PutInstance(std::int64_t id, const Row& series, const Record& record, const std::string& path,
                     std::uint64_t size);
    Removed Remove(const std::string& instanceUid);
    void Refresh(std::int64_t series);
    void Drop(std::int64_t series);
    void Forget();

    Database& m_database;
    std::vector<const Attribute*> m_columns[kLevels];
    Cache m_cache[3];
    std::unordered_set<std::string> m_classes;             ///< series and class that are known to be there
    std::unordered_map<std::int64_t, std::int64_t> m_more; ///< series: instances since the last Commit
    bool m_open = false;
    bool m_lasting = false;

    Statement m_find, m_ofAnother, m_remove;
    Statement m_look[3], m_insert[3], m_update[3];
    Statement m_insertInstance, m_removeNames, m_insertName, m_insertClass, m_refreshClasses, m_count, m_seriesLeft;
};

} // namespace archive

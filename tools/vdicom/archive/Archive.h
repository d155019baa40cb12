/// @file Archive.h
/// An archive: a folder of DICOM files with an index, for one process at a time. What `vdicom serve` does that needs no
/// network.
///
///     FOLDER/.vdicom/index.sqlite     the index (IndexWriter, Schema)
///     FOLDER/.vdicom/journal          what the index does not have yet (FileStore, Journal)
///     FOLDER/.vdicom/unfinished/      files that are being received (FileStore)
///     FOLDER/.vdicom/lock             held by the process that uses the archive
///     FOLDER/PATIENT/STUDY/SERIES/    the files
///
/// One thread uses an archive. A server calls Store().Begin when an object's command has arrived, Commit when its last
/// byte has, and once per turn of its event loop Flush, after which it acknowledges; it calls Next of the queries and
/// retrievals that are under way when their connections can take more.
#pragma once

#include "Commitment.h"
#include "FileStore.h"
#include "Find.h"
#include "Retrieval.h"

#include <functional>
#include <memory>
#include <stdexcept>

namespace archive {

/// The archive cannot be used; says why and what to do.
class ArchiveError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct ArchiveOptions {
    std::string folder;     ///< UTF-8; made when it is not there
    std::string retrieveAE; ///< what responses name as Retrieve AE Title: our own
    bool sync = false;      ///< acknowledged objects outlast a power failure
    /// Told of files that a killed process has taken and that cannot be read any more.
    FileComplaint complaint = [](const std::string&, const std::string&) {};
};

/// Holds the archive's lock, and knows its places.
class ArchiveFolder {
public:
    /// Makes the folders that are missing. @throw ArchiveError
    explicit ArchiveFolder(std::string folder);

    const std::string& Root() const { return m_root; }
    std::string Index() const { return m_root + "/.vdicom/index.sqlite"; }
    std::string NewIndex() const { return Index() + ".new"; }
    std::string Journal() const { return m_root + "/.vdicom/journal"; }
    std::string Unfinished() const { return m_root + "/.vdicom/unfinished"; }

private:
    std::string m_root;
    VDicomFile m_lock;
};

class Archive {
public:
    /// Opens or makes an archive; takes away what a killed process was receiving, and indexes what it had taken.
    /// @throw ArchiveError, also when files are there without an index (see Reindex)
    explicit Archive(const ArchiveOptions& options);

    FileStore& Store() { return *m_store; }

    /// Begins with a C-FIND request. @return 0; else the status of the only response: A700, A900, C000
    Outcome StartFind(VDicomDS& identifier, const QueryOptions& options, std::unique_ptr<Find>& find);
    /// Begins with a C-MOVE or C-GET request. @return as StartFind
    Outcome StartRetrieval(VDicomDS& identifier, const QueryOptions& options, std::unique_ptr<Retrieval>& retrieval);
    /// Begins with an N-ACTION request of storage commitment. @return 0; else the status of its response
    Outcome StartCommitment(VDicomDS& action, std::unique_ptr<Commitment>& commitment);

    struct Count {
        std::uint64_t patients, studies, series, instances;
    };
    /// What is in the archive. @throw DatabaseError
    Count Counts();

private:
    ArchiveOptions m_options;
    ArchiveFolder m_folder;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<IndexWriter> m_index;
    std::unique_ptr<FileStore> m_store;
    std::unique_ptr<ReaderPool> m_readers;
};

struct ReindexCounts {
    std::uint64_t total = 0;      ///< files that are there
    std::uint64_t seen = 0;       ///< files looked at
    std::uint64_t indexed = 0;    ///< objects in the new index
    std::uint64_t duplicates = 0; ///< files of an object of which a newer file is indexed
    std::uint64_t failed = 0;     ///< files that are no DICOM object, or cannot be read
};
/// Called after each file. @return false to stop; the old index stays then
using ReindexProgress = std::function<bool(const ReindexCounts& counts)>;
/// Makes the index of an archive anew from its files, those of other names and places below the folder too. The old
/// index stays until the new one is whole. Symbolic links are not followed.
/// @return what was found @throw ArchiveError (in use, cannot be written), DatabaseError
ReindexCounts Reindex(const std::string& folder, const ReindexProgress& progress, const FileComplaint& complaint);

} // namespace archive

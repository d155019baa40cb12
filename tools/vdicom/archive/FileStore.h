/// @file FileStore.h
/// The files of the archive. A received object is written as it arrives into a file of its own in the archive's folder
/// of unfinished files, and takes its place by renaming once it is whole and understood:
///
///     FOLDER/PATIENT ID/STUDY UID/SERIES UID/INSTANCE UID.dcm
///
/// made of VDicomFile::MakeFileName; objects without Patient ID are below "%none". An object that is stored again
/// replaces the one before: its file takes the other one of the two names UID.dcm and UID~.dcm, the index follows, and
/// only then the old file goes. So a query or a killed process sees one or the other, whole. A retrieval that is under
/// way may find the old file gone.
#pragma once

#include "IndexWriter.h"
#include "Outcome.h"

#include "VDicomDS.h"

#include <set>
#include <string>
#include <vector>

namespace archive {

/// What a C-STORE request and its association say.
struct StoreRequest {
    std::string classUid;       ///< Affected SOP Class UID
    std::string instanceUid;    ///< Affected SOP Instance UID
    std::string transferSyntax; ///< of the presentation context
    std::string sourceAE;       ///< who sends it; may be empty
};

/// A file that is being received. Its destructor takes away what was not committed.
class IncomingFile {
public:
    IncomingFile() = default;
    ~IncomingFile() { Discard(); }
    IncomingFile(const IncomingFile&) = delete;
    IncomingFile& operator=(const IncomingFile&) = delete;

    /// Open for reading and writing from FileStore::Begin on, and positioned behind group 0002.
    VDicomFile& Stream() { return m_stream; }
    bool IsOpen() const { return m_stream.IsOpen() != 0; }
    /// Closes and deletes it. Data sets that were loaded from it must not read values any more.
    void Discard();

private:
    friend class FileStore;
    VDicomFile m_stream;
    std::string m_path; ///< empty: none
    StoreRequest m_request;
};

/// One thread. Nothing is thrown but std::bad_alloc.
class FileStore {
public:
    /// @param folder of the archive @param unfinished a folder of the same file system
    /// @param sync whether committed files outlast a power failure
    FileStore(std::string folder, std::string unfinished, IndexWriter& index, bool sync);

    /// Opens a file for an object, with preamble and group 0002 written. @return 0; A700: the disk is full, or the
    /// file cannot be made; C000: the request's UIDs are none
    Outcome Begin(const StoreRequest& request, IncomingFile& file);

    /// Puts a received object in its place and into the index. It must not be acknowledged before Flush.
    /// @param data the object, loaded from the file's stream. It must not read values any more afterwards.
    /// @return 0; A700: the disk is full or refuses; A900: class or instance is not that of the request; C000: a UID is
    ///         missing or is none. After a failure nothing of the object is left.
    Outcome Commit(IncomingFile& file, VDicomDS& data);

    /// Makes what was committed since the last Flush last: all of it, or nothing. Call it once for all that arrived in
    /// one turn of an event loop, and acknowledge then.
    /// @return 0; A700: none of these objects was stored, each has to be answered with it
    Outcome Flush();

    /// How many objects wait for Flush.
    std::size_t Waiting() const { return m_placed.size(); }

private:
    Outcome Place(IncomingFile& file, const Record& record, std::string& path);
    Outcome MakeFolder(const std::string& folder);
    std::string PathFor(const Record& record);
    bool IsTaken(const std::string& path, const std::string& instanceUid);
    bool SyncFolders(std::string& reason);
    Outcome GiveUp(const std::string& reason);

    std::string m_folder;
    std::string m_unfinished;
    IndexWriter& m_index;
    bool m_sync;
    std::uint64_t m_counter = 0;
    std::set<std::string> m_known;       ///< folders that are there
    std::set<std::string> m_changed;     ///< folders to put onto the disk
    std::vector<std::string> m_placed;   ///< files committed since the last Flush
    std::vector<std::string> m_replaced; ///< files that go when they have been
    std::set<std::string> m_waiting;     ///< their SOP Instance UIDs
    std::string m_failure;               ///< the index has refused something since then, and is of no use until Flush
};

/// The name of an archive's file or folder for a text; a long one is cut, and what is empty is "%none".
std::string NameFor(const std::string& text);

} // namespace archive

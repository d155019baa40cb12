/// @file FileStore.h
/// The files of the archive. A received object is written as it arrives into a file of its own in the archive's folder
/// of unfinished files, and takes its place by renaming once it is whole and understood:
///
///     FOLDER/PATIENT ID/STUDY UID/SERIES UID/INSTANCE UID.dcm
///
/// made of VDicomFile::MakeFileName; objects without Patient ID are below "%none". An object that is stored again
/// replaces the one before: its file takes the other one of the two names UID.dcm and UID~.dcm, the index follows, and
/// only then the old file goes. So a query or a killed process sees one or the other, whole; the new file is on the
/// disk by then, so that a power failure leaves one of them too.
///
/// A transaction of the index costs more than all else, so it takes in many objects; until then they stand in the
/// journal, from which the next process makes good what a killed one has left out.
#pragma once

#include "IndexWriter.h"
#include "Journal.h"
#include "Outcome.h"

#include "VDicomDS.h"

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace archive {

/// Called for each file that is not indexed, and each folder that cannot be read, with one sentence.
using FileComplaint = std::function<void(const std::string& path, const std::string& reason)>;

/// Where an archive's parts are.
struct StorePlaces {
    std::string folder;     ///< of the archive
    std::string unfinished; ///< folder of the same file system
    std::string journal;    ///< file
};

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
    /// @param sync whether committed files outlast a power failure
    FileStore(StorePlaces places, IndexWriter& index, bool sync);
    ~FileStore();
    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;

    /// To be called first: puts into the index what the journal of a killed process names.
    /// @throw DatabaseError; std::filesystem::filesystem_error: the journal cannot be emptied
    void Replay(const FileComplaint& complaint);

    /// Opens a file for an object, with preamble and group 0002 written. @return 0; A700: the disk is full, or the
    /// file cannot be made, or the index refuses what came before; C000: the request's UIDs are none
    Outcome Begin(const StoreRequest& request, IncomingFile& file);

    /// Puts a received object in its place. It must not be acknowledged before Flush.
    /// @param data the object, loaded from the file's stream. It must not read values any more afterwards.
    /// @return 0; A700: the disk is full or refuses; A900: class or instance is not that of the request; C000: a UID is
    ///         missing or is none. After a failure nothing of the object is left.
    Outcome Commit(IncomingFile& file, VDicomDS& data);

    /// Makes what was committed since the last Flush last: all of it, or nothing. Call it once for all that arrived in
    /// one turn of an event loop, and acknowledge then; and now and then when nothing arrives.
    /// @return 0; A700: each of these objects has to be answered with it. None was stored, but perhaps one that came
    ///         twice in the turn, and those before it
    Outcome Flush();

    /// Brings the index up to the last Flush, so that queries find what was acknowledged. @return 0; A700: the index
    /// refuses; what was acknowledged stays in the journal and is tried again
    Outcome Settle();

    /// Why the last Settle failed; empty: it did not.
    const std::string& Refusal() const { return m_refusal; }

private:
    using Clock = std::chrono::steady_clock;
    /// An object whose file has its place.
    struct Placed {
        Record record;
        std::string path; ///< within the archive
        std::uint64_t size;
        std::string replaced; ///< path of the object's former file; may be empty
    };

    Outcome Place(IncomingFile& file, Record& record);
    Outcome PutIntoIndex();
    Outcome MakeFolder(const std::string& folder);
    std::string PathFor(const Record& record, const std::string& present);
    bool IsTaken(const std::string& path, const std::string& instanceUid);
    Outcome SyncFolders();
    bool IsDue() const;
    Outcome GiveUp(const std::string& reason);
    void Delete(const std::string& path) const;

    StorePlaces m_places;
    IndexWriter& m_index;
    Journal m_journal;
    bool m_sync;
    std::uint64_t m_counter = 0;
    std::set<std::string> m_known;    ///< folders that are there
    std::set<std::string> m_changed;  ///< folders to put onto the disk
    std::vector<Placed> m_placed;     ///< committed since the last Flush
    std::vector<Placed> m_unsettled;  ///< flushed, and not in the index yet
    std::set<std::string> m_uids;     ///< SOP Instance UIDs of both
    std::set<std::string> m_replaced; ///< paths of the files that go when they are in the index
    Clock::time_point m_oldest;       ///< when the first of m_unsettled came
    std::string m_failure;            ///< nothing of this turn can be kept, and why
    std::string m_refusal;            ///< of the index, at the last Settle
};

/// The name of an archive's file or folder for a text; a long one is cut, and what is empty is "%none".
std::string NameFor(const std::string& text);

} // namespace archive

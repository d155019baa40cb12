#include "FileStore.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace archive {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kKnownFolders = 4096;
/// Objects in one transaction of the index: more would keep the other associations waiting for longer than some ms.
constexpr std::size_t kMostUnsettled = 128;
constexpr std::chrono::seconds kSettleAfter(1);
constexpr unsigned short kMode = DICOM_FILE_CREATE | DICOM_FILE_READ | DICOM_FILE_WRITE;
constexpr VDicomULong kMediaClass = 0x00020002, kMediaInstance = 0x00020003, kSourceAE = 0x00020016;

std::string SystemText(int error) { return std::generic_category().message(error); }

Outcome OutOfResources(std::string reason) { return {status::kOutOfResources, std::move(reason)}; }

bool SetText(VDicomDS& ds, VDicomULong tag, const std::string& text) {
    return ds.FindSetValue(nullptr, tag, 0, text.c_str(), 1) != 0;
}

// Preamble and group 0002; the object's bytes follow in the encoding that it names.
bool WriteMeta(const StoreRequest& request, VDicomFile& stream) {
    VDicomDS meta;
    const bool isFilled = SetText(meta, kMediaClass, request.classUid) &&
                          SetText(meta, kMediaInstance, request.instanceUid) &&
                          SetText(meta, tag::kTransferSyntax, request.transferSyntax) &&
                          (request.sourceAE.empty() || SetText(meta, kSourceAE, request.sourceAE));
    constexpr unsigned short kFlags = DICOM_FLAG_PART10 | DICOM_TS_EXPLICIT_LITTLE | DICOM_FLAG_KEEP_UID;
    return isFilled && meta.SaveDS(&stream, kFlags) == DICOM_OK;
}

void Remove(const std::string& path) {
    std::error_code ignored;
    fs::remove(path, ignored);
}

} // namespace

std::string NameFor(const std::string& text) {
    char name[256];
    // Three bytes of a name for one of the text at most: a long Patient ID is cut, its studies stay apart all the same.
    constexpr std::size_t kMost = 80;
    const auto size = static_cast<VDicomULong>(text.size());
    if (VDicomFile::MakeFileName(text.c_str(), size, name, sizeof name) == 0 &&
        VDicomFile::MakeFileName(text.c_str(), static_cast<VDicomULong>(std::min(text.size(), kMost)), name,
                                 sizeof name) == 0)
        return "%none";
    return name;
}

void IncomingFile::Discard() {
    m_stream.Close(1);
    if (!m_path.empty())
        Remove(m_path);
    m_path.clear();
}

FileStore::FileStore(StorePlaces places, IndexWriter& index, bool sync)
    : m_places(std::move(places)), m_index(index), m_journal(m_places.journal), m_sync(sync) {}

FileStore::~FileStore() { Settle(); }

void FileStore::Delete(const std::string& path) const { Remove(m_places.folder + '/' + path); }

void FileStore::Replay(const FileComplaint& complaint) {
    VDicomDS object;
    object.SetLoadLimit(kLastIndexed);
    std::set<std::string> replaced;
    for (const std::string& path : m_journal.Read()) {
        const std::string full = m_places.folder + '/' + path;
        std::error_code error;
        const std::uint64_t size = fs::file_size(full, error);
        if (error == std::errc::no_such_file_or_directory)
            continue; // the line is older than the index
        Record record;
        Outcome outcome;
        if (const unsigned int code = object.LoadDS(full.c_str(), 0); code != DICOM_OK)
            outcome = {status::kUnableToProcess, GetErrorText(code)};
        else
            outcome = ReadRecord(object, record);
        if (!outcome.IsSuccess()) {
            complaint(path, outcome.comment);
            continue;
        }
        if (const std::optional<std::string> present = m_index.Find(record.Get(tag::kInstance)))
            replaced.insert(*present);
        m_index.Put(record, path, size);
        replaced.erase(path);
    }
    m_index.Commit();
    if (const int error = m_journal.Clear(); error != 0)
        throw fs::filesystem_error("the journal cannot be emptied", m_places.journal,
                                   std::error_code(error, std::generic_category()));
    for (const std::string& path : replaced)
        Delete(path);
}

Outcome FileStore::Begin(const StoreRequest& request, IncomingFile& file) {
    file.Discard();
    if (!IsUid(request.classUid) || !IsUid(request.instanceUid) || !IsUid(request.transferSyntax))
        return {status::kUnableToProcess, "the request has no valid SOP Class and Instance UID"};
    if (!m_refusal.empty()) {
        if (Outcome outcome = Settle(); !outcome.IsSuccess())
            return outcome;
    }
    file.m_request = request;
    const std::string path = m_places.unfinished + '/' + std::to_string(++m_counter);
    if (file.m_stream.Open(path.c_str(), kMode) == 0)
        return OutOfResources("no file can be made: " + SystemText(file.m_stream.GetError()));
    file.m_path = path;
    if (WriteMeta(request, file.m_stream))
        return {};
    const int error = file.m_stream.GetError();
    file.Discard();
    return OutOfResources("the file cannot be written: " + SystemText(error));
}

Outcome FileStore::Commit(IncomingFile& file, VDicomDS& data) {
    if (!m_failure.empty()) {
        file.Discard();
        return OutOfResources(m_failure);
    }
    Record record;
    Outcome outcome = ReadRecord(data, record);
    if (outcome.IsSuccess() && record.Get(tag::kClass) != file.m_request.classUid)
        outcome = {status::kDoesNotMatchClass, "SOP Class UID is not that of the request"};
    else if (outcome.IsSuccess() && record.Get(tag::kInstance) != file.m_request.instanceUid)
        outcome = {status::kDoesNotMatchClass, "SOP Instance UID is not that of the request"};
    try {
        if (outcome.IsSuccess())
            outcome = Place(file, record);
    } catch (const DatabaseError& error) {
        outcome = OutOfResources(std::string("the index cannot be read: ") + error.what());
    }
    if (!outcome.IsSuccess())
        file.Discard();
    return outcome;
}

Outcome FileStore::MakeFolder(const std::string& folder) {
    if (m_known.contains(folder))
        return {};
    if (m_known.size() > kKnownFolders)
        m_known.clear();
    std::error_code error;
    std::string above;
    for (std::size_t end = folder.find('/'); !error; end = folder.find('/', end + 1)) {
        const std::string part = folder.substr(0, end);
        fs::create_directory(m_places.folder + '/' + part, error);
        m_changed.insert(above); // also where it is there: the process that made it may have been killed since
        above = part;
        if (end == std::string::npos)
            break;
    }
    if (error)
        return OutOfResources("no folder can be made: " + error.message());
    m_known.insert(folder);
    return {};
}

// Whether a file is in the way that is another object's, or that goes when the index has what replaces it.
bool FileStore::IsTaken(const std::string& path, const std::string& instanceUid) {
    std::error_code ignored;
    return fs::exists(m_places.folder + '/' + path, ignored) &&
           (m_replaced.contains(path) || m_index.IsOfAnother(path, instanceUid));
}

// The name that is free: of two, one that neither the object's present file has nor another object's. Empty: none.
std::string FileStore::PathFor(const Record& record, const std::string& present) {
    const std::string folder = NameFor(record.Get(tag::kPatientID)) + '/' + NameFor(record.Get(tag::kStudy)) + '/' +
                               NameFor(record.Get(tag::kSeries));
    const std::string& uid = record.Get(tag::kInstance);
    for (const char* more : {"", "~"}) {
        std::string path = UsualFile(folder, NameFor(uid) + more);
        if (path != present && !IsTaken(path, uid))
            return path;
    }
    return {};
}

Outcome FileStore::Place(IncomingFile& file, Record& record) {
    // Once more while it is on its way: the index has to know where the one before is.
    const std::string uid = record.Get(tag::kInstance);
    if (m_uids.contains(uid)) {
        if (Outcome outcome = Flush(); !outcome.IsSuccess()) {
            m_failure = outcome.comment; // for those who wait for the next one
            return outcome;
        }
        if (Outcome outcome = Settle(); !outcome.IsSuccess())
            return outcome;
    }
    const std::string present = m_index.Find(uid).value_or("");
    std::string path = PathFor(record, present);
    if (path.empty() && !m_unsettled.empty() && Settle().IsSuccess()) // which may have set a name free
        path = PathFor(record, present);
    if (path.empty())
        return OutOfResources("the files of other objects have the names that this one's file would get");
    const std::string folder = path.substr(0, path.rfind('/'));
    if (Outcome outcome = MakeFolder(folder); !outcome.IsSuccess())
        return outcome;
    // What replaces another object's file must not be lost together with it.
    if ((m_sync || !present.empty()) && file.m_stream.Sync() == 0)
        return OutOfResources("the file cannot be written: " + SystemText(file.m_stream.GetError()));
    const std::uint64_t size = file.m_stream.GetSize64();
    if (file.m_stream.Close(0) == 0)
        return OutOfResources("the file cannot be written: " + SystemText(file.m_stream.GetError()));
    std::error_code error;
    fs::rename(file.m_path, m_places.folder + '/' + path, error);
    if (error) {
        m_known.erase(folder); // somebody may have deleted it
        return OutOfResources("the file cannot take its place: " + error.message());
    }
    file.m_path.clear();
    m_changed.insert(folder);
    m_uids.insert(uid);
    if (!present.empty())
        m_replaced.insert(present);
    m_placed.push_back({std::move(record), path, size, present});
    return {};
}

Outcome FileStore::SyncFolders() {
    std::set<std::string> changed;
    changed.swap(m_changed);
    for (const std::string& folder : changed) {
        int error = 0;
        if (VDicomFile::SyncFolder((m_places.folder + '/' + folder).c_str(), &error) == 0)
            return OutOfResources("the folders cannot be written: " + SystemText(error));
    }
    return {};
}

// Nothing of this turn's is in the journal or the index.
Outcome FileStore::GiveUp(const std::string& reason) {
    for (const Placed& object : m_placed) {
        Delete(object.path);
        m_replaced.erase(object.replaced);
        m_uids.erase(object.record.Get(tag::kInstance));
    }
    m_placed.clear();
    m_known.clear();
    m_failure.clear();
    return OutOfResources(reason);
}

bool FileStore::IsDue() const {
    return m_unsettled.size() >= kMostUnsettled || (!m_unsettled.empty() && Clock::now() - m_oldest >= kSettleAfter);
}

Outcome FileStore::Flush() {
    if (!m_failure.empty())
        return GiveUp(std::string(m_failure));
    if (m_sync) {
        if (Outcome outcome = SyncFolders(); !outcome.IsSuccess())
            return GiveUp(outcome.comment);
    }
    if (!m_sync && !m_placed.empty()) {
        std::vector<std::string> lines;
        for (const Placed& object : m_placed)
            lines.push_back(object.path);
        if (const int error = m_journal.Append(lines); error != 0)
            return GiveUp("the journal cannot be written: " + SystemText(error));
    }
    if (m_unsettled.empty())
        m_oldest = Clock::now();
    const std::size_t before = m_unsettled.size();
    std::move(m_placed.begin(), m_placed.end(), std::back_inserter(m_unsettled));
    m_placed.clear();
    if (m_sync && before == m_unsettled.size())
        return {};
    if (!m_sync && !IsDue())
        return {};
    Outcome outcome = Settle();
    if (!m_sync || outcome.IsSuccess()) // in the journal, where nothing is lost
        return {};
    m_placed.swap(m_unsettled);
    m_refusal.clear();
    return GiveUp(outcome.comment);
}

Outcome FileStore::PutIntoIndex() {
    // Before a former file goes, what takes its place is on the disk.
    const bool lasting = m_sync || std::any_of(m_unsettled.begin(), m_unsettled.end(),
                                               [](const Placed& object) { return !object.replaced.empty(); });
    if (lasting) {
        if (Outcome outcome = SyncFolders(); !outcome.IsSuccess())
            return outcome;
    }
    m_changed.clear();
    try {
        m_index.SetLasting(lasting);
        for (const Placed& object : m_unsettled)
            m_index.Put(object.record, object.path, object.size);
        m_index.Commit();
        return {};
    } catch (const DatabaseError& error) {
        const std::string reason = std::string("the index cannot be written: ") + error.what();
        try {
            m_index.Rollback();
        } catch (const DatabaseError&) { // it is closed without a commit then, which does the same
        }
        return OutOfResources(reason);
    }
}

Outcome FileStore::Settle() {
    m_refusal.clear();
    Outcome outcome = m_unsettled.empty() ? Outcome{} : PutIntoIndex();
    // Lines that stay would bring an object's former file back some day.
    if (outcome.IsSuccess() && !m_journal.IsEmpty()) {
        if (const int error = m_journal.Clear(); error != 0)
            outcome = OutOfResources("the journal cannot be emptied: " + SystemText(error));
    }
    m_refusal = outcome.comment;
    if (!outcome.IsSuccess())
        return outcome;
    for (const Placed& object : m_unsettled) {
        m_uids.erase(object.record.Get(tag::kInstance));
        if (!object.replaced.empty() && m_replaced.erase(object.replaced) != 0)
            Delete(object.replaced);
    }
    m_unsettled.clear();
    return {};
}

} // namespace archive

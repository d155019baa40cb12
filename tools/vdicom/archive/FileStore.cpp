#include "FileStore.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace archive {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kKnownFolders = 4096;
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

void Delete(const std::string& path) {
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
        Delete(m_path);
    m_path.clear();
}

FileStore::FileStore(std::string folder, std::string unfinished, IndexWriter& index, bool sync)
    : m_folder(std::move(folder)), m_unfinished(std::move(unfinished)), m_index(index), m_sync(sync) {}

Outcome FileStore::Begin(const StoreRequest& request, IncomingFile& file) {
    file.Discard();
    if (!IsUid(request.classUid) || !IsUid(request.instanceUid) || !IsUid(request.transferSyntax))
        return {status::kUnableToProcess, "the request has no valid SOP Class and Instance UID"};
    file.m_request = request;
    const std::string path = m_unfinished + '/' + std::to_string(++m_counter);
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
    std::string path;
    try {
        if (outcome.IsSuccess())
            outcome = Place(file, record, path);
    } catch (const DatabaseError& error) {
        // What the others of this turn have put into the index is lost as well.
        if (!path.empty())
            m_placed.push_back(m_folder + '/' + path);
        outcome = OutOfResources(std::string("the index cannot be written: ") + error.what());
        m_failure = outcome.comment;
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
        fs::create_directory(m_folder + '/' + part, error);
        if (m_sync) // also where it is there: the process that made it may have been killed since
            m_changed.insert(above);
        above = part;
        if (end == std::string::npos)
            break;
    }
    if (error)
        return OutOfResources("no folder can be made: " + error.message());
    m_known.insert(folder);
    return {};
}

// Whether a file is in the way that is another object's, or that goes with the next Flush.
bool FileStore::IsTaken(const std::string& path, const std::string& instanceUid) {
    const std::string full = m_folder + '/' + path;
    std::error_code ignored;
    return fs::exists(full, ignored) && (std::find(m_replaced.begin(), m_replaced.end(), full) != m_replaced.end() ||
                                         m_index.IsOfAnother(path, instanceUid));
}

// The name that is free: of two, one that neither the object's present file has nor another object's. Empty: none.
std::string FileStore::PathFor(const Record& record) {
    const std::string folder = NameFor(record.Get(tag::kPatientID)) + '/' + NameFor(record.Get(tag::kStudy)) + '/' +
                               NameFor(record.Get(tag::kSeries));
    const std::string& uid = record.Get(tag::kInstance);
    const std::optional<std::string> present = m_index.Find(uid);
    if (present)
        m_replaced.push_back(m_folder + '/' + *present);
    for (const char* more : {"", "~"}) {
        std::string path = UsualFile(folder, NameFor(uid) + more);
        if (path != present && !IsTaken(path, uid))
            return path;
    }
    return {};
}

Outcome FileStore::Place(IncomingFile& file, const Record& record, std::string& path) {
    // Twice in one turn: the second must not take the name that the index still has for the one before both.
    if (m_waiting.contains(record.Get(tag::kInstance))) {
        if (Outcome outcome = Flush(); !outcome.IsSuccess()) {
            m_failure = outcome.comment;
            return outcome;
        }
    }
    const std::size_t replacedBefore = m_replaced.size();
    const std::string target = PathFor(record);
    const auto fail = [&](const std::string& reason) {
        m_replaced.resize(replacedBefore);
        return OutOfResources(reason);
    };
    if (target.empty())
        return fail("the files of other objects have the names that this one's file would get");
    const std::string folder = target.substr(0, target.rfind('/'));
    if (Outcome outcome = MakeFolder(folder); !outcome.IsSuccess())
        return fail(outcome.comment);
    if (m_sync && file.m_stream.Sync() == 0)
        return fail("the file cannot be written: " + SystemText(file.m_stream.GetError()));
    const std::uint64_t size = file.m_stream.GetSize64();
    if (file.m_stream.Close(0) == 0)
        return fail("the file cannot be written: " + SystemText(file.m_stream.GetError()));
    std::error_code error;
    fs::rename(file.m_path, m_folder + '/' + target, error);
    if (error) {
        m_known.erase(folder); // somebody may have deleted it
        return fail("the file cannot take its place: " + error.message());
    }
    file.m_path.clear();
    path = target;
    if (m_sync)
        m_changed.insert(folder);
    m_index.Put(record, path, size);
    m_placed.push_back(m_folder + '/' + path);
    m_waiting.insert(record.Get(tag::kInstance));
    return {};
}

bool FileStore::SyncFolders(std::string& reason) {
    for (const std::string& folder : m_changed) {
        int error = 0;
        if (VDicomFile::SyncFolder((m_folder + '/' + folder).c_str(), &error) == 0) {
            reason = SystemText(error);
            return false;
        }
    }
    m_changed.clear();
    return true;
}

// The files go before the index is as it was: one that is not in the index does no harm.
Outcome FileStore::GiveUp(const std::string& reason) {
    for (const std::string& path : m_placed)
        Delete(path);
    m_placed.clear();
    m_waiting.clear();
    m_replaced.clear();
    m_changed.clear();
    m_known.clear();
    m_failure.clear();
    try {
        m_index.Rollback();
    } catch (const DatabaseError&) { // it is closed without a commit then, which does the same
    }
    return OutOfResources(reason);
}

Outcome FileStore::Flush() {
    if (!m_failure.empty())
        return GiveUp(m_failure);
    if (m_placed.empty())
        return {};
    std::string reason;
    if (!SyncFolders(reason))
        return GiveUp("the folders cannot be written: " + reason);
    try {
        m_index.Commit();
    } catch (const DatabaseError& error) {
        return GiveUp(std::string("the index cannot be written: ") + error.what());
    }
    for (const std::string& path : m_replaced)
        Delete(path);
    m_replaced.clear();
    m_placed.clear();
    m_waiting.clear();
    return {};
}

} // namespace archive

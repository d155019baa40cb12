#include "Archive.h"

#include "Schema.h"

#include <filesystem>
#include <system_error>

namespace archive {

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrivate = ".vdicom";

void MakeFolder(const std::string& path) {
    std::error_code error;
    fs::create_directories(path, error);
    if (error)
        throw ArchiveError(path + ": the folder cannot be made: " + error.message());
}

// Empty folders do not count, nor do those that nobody may read: a new file system has one.
bool HasFiles(const std::string& folder) {
    constexpr auto kOptions = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(folder, kOptions), end; entry != end; ++entry) {
        if (entry.depth() == 0 && entry->path().filename() == kPrivate)
            entry.disable_recursion_pending();
        else if (entry->is_symlink() || !entry->is_directory())
            return true;
    }
    return false;
}

void EmptyFolder(const std::string& folder) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        std::error_code ignored;
        fs::remove_all(entry.path(), ignored);
    }
}

std::unique_ptr<Database> OpenIndex(const ArchiveFolder& folder) {
    const std::string path = folder.Index();
    if (!fs::exists(path)) {
        if (HasFiles(folder.Root()))
            throw ArchiveError(folder.Root() +
                               ": there are files without an index; make it with 'vdicom serve --reindex'");
        RemoveIndex(folder.NewIndex());
        CreateSchema(*std::make_unique<Database>(folder.NewIndex(), Database::Mode::create));
        PutInPlace(folder.NewIndex(), path);
    }
    auto database = std::make_unique<Database>(path, Database::Mode::write);
    if (const std::string reason = CheckSchema(*database); !reason.empty())
        throw ArchiveError(path + ": " + reason);
    database->Execute("PRAGMA cache_size = -65536");
    database->Execute("PRAGMA synchronous = NORMAL"); // IndexWriter raises it
    return database;
}

Outcome Failed(const DatabaseError& error) {
    return {status::kOutOfResources, std::string("the index cannot be read: ") + error.what()};
}

} // namespace

ArchiveFolder::ArchiveFolder(std::string folder) : m_root(std::move(folder)) {
    while (m_root.size() > 1 && m_root.back() == '/')
        m_root.pop_back();
    MakeFolder(Unfinished());
    const std::string lock = m_root + '/' + kPrivate + "/lock";
    if (m_lock.Open(lock.c_str(), DICOM_FILE_CREATE | DICOM_FILE_WRITE) == 0)
        throw ArchiveError(m_root + ": the archive is in use, or cannot be written to: " +
                           std::generic_category().message(m_lock.GetError()));
}

Archive::Archive(const ArchiveOptions& options) try : m_options(options), m_folder(options.folder) {
    EmptyFolder(m_folder.Unfinished());
    m_database = OpenIndex(m_folder);
    m_index = std::make_unique<IndexWriter>(*m_database);
    m_store = std::make_unique<FileStore>(StorePlaces{m_folder.Root(), m_folder.Unfinished(), m_folder.Journal()},
                                          *m_index, options.sync);
    m_store->Replay(options.complaint);
    m_readers = std::make_unique<ReaderPool>(m_folder.Index());
} catch (const DatabaseError& error) {
    throw ArchiveError(options.folder + ": the index cannot be used: " + error.what() +
                       "; 'vdicom serve --reindex' makes it anew");
} catch (const fs::filesystem_error& error) {
    throw ArchiveError((error.path1().empty() ? options.folder : error.path1().string()) + ": " +
                       error.code().message());
}

Outcome Archive::StartFind(VDicomDS& identifier, const QueryOptions& options, std::unique_ptr<Find>& find) {
    Query query;
    if (Outcome outcome = ReadQuery(identifier, options, query); !outcome.IsSuccess())
        return outcome;
    if (Outcome outcome = m_store->Settle(); !outcome.IsSuccess())
        return outcome;
    try {
        find = std::make_unique<Find>(std::move(query), *m_readers, m_options.retrieveAE);
        return {};
    } catch (const DatabaseError& error) {
        return Failed(error);
    }
}

Outcome Archive::StartRetrieval(VDicomDS& identifier, const QueryOptions& options,
                                std::unique_ptr<Retrieval>& retrieval) {
    Query query;
    if (Outcome outcome = ReadRetrieval(identifier, options, query); !outcome.IsSuccess())
        return outcome;
    if (Outcome outcome = m_store->Settle(); !outcome.IsSuccess())
        return outcome;
    try {
        retrieval = std::make_unique<Retrieval>(query, *m_readers, m_folder.Root());
        return {};
    } catch (const DatabaseError& error) {
        return Failed(error);
    }
}

Outcome Archive::StartCommitment(VDicomDS& action, std::unique_ptr<Commitment>& commitment) {
    if (Outcome outcome = m_store->Settle(); !outcome.IsSuccess())
        return outcome;
    try {
        commitment = std::make_unique<Commitment>(*m_readers, m_folder.Root(), m_options.retrieveAE);
        return commitment->Read(action);
    } catch (const DatabaseError& error) {
        return Failed(error);
    }
}

Archive::Count Archive::Counts() {
    m_store->Settle();
    const auto count = [this](const char* sql) { return static_cast<std::uint64_t>(m_database->Number(sql)); };
    return {count("SELECT count(*) FROM patient"), count("SELECT count(*) FROM study"),
            count("SELECT count(*) FROM series"), count("SELECT coalesce(sum(instances), 0) FROM series")};
}

} // namespace archive

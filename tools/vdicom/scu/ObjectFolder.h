/// @file ObjectFolder.h
/// Received objects on their way into the files of a folder.
#pragma once

#include "VDicomDS.h"

#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

namespace program {

/// Preamble and group 0002 (PS3.10 7.1) of a file whose data set is encoded as `syntaxUid` says.
std::string FileMeta(const std::string& classUid, const std::string& instanceUid, const std::string& syntaxUid,
                     const std::string& sourceTitle);

/// Whether a command is the C-STORE request that announces an object.
bool IsStoreRequest(VDicomDS& command);

/// An object that was answered with another status than success.
struct Refusal {
    std::string instanceUid; ///< empty: it has none that could be told
    unsigned short status = 0;
    std::string text;
};

/// The folder, and what has come into it. Files are named by their SOP Instance UID.
class ObjectFolder {
public:
    ObjectFolder(std::string path, bool overwrite);

    /// Makes the folder where it is missing. @return what is wrong; empty: nothing
    std::string Prepare();

    std::uint64_t CountWritten() const { return m_written; }
    std::uint64_t CountKept() const { return m_kept; }
    std::uint64_t CountFailed() const { return m_failed; }
    std::uint64_t CountBytes() const { return m_bytes; }
    /// Those of the failed ones that could not be written, and why the last one could not.
    std::uint64_t CountUnwritten() const { return m_unwritten; }
    const std::string& UnwrittenReason() const { return m_reason; }
    /// Whether that was for want of room.
    bool IsFull() const { return m_isFull; }
    /// The failed ones, the first kMostRefusals of them.
    const std::vector<Refusal>& Refusals() const { return m_refusals; }
    static constexpr std::size_t kMostRefusals = 10'000;
    const std::string& Path() const { return m_path; }

private:
    friend class IncomingObject;

    std::string PathOf(const std::string& name) const;
    std::string NewPart();

    std::string m_path;
    bool m_overwrite;
    std::string m_tag; ///< in the names of unfinished files: another process may use the folder
    std::uint64_t m_parts = 0;
    std::uint64_t m_written = 0;
    std::uint64_t m_kept = 0;
    std::uint64_t m_bytes = 0;
    std::uint64_t m_failed = 0;
    std::uint64_t m_unwritten = 0;
    std::string m_reason;
    bool m_isFull = false;
    std::vector<Refusal> m_refusals;
};

/// One object that a connection receives: bytes go into an unfinished file as they arrive, which takes its name when it
/// is whole, and is gone when something goes wrong.
class IncomingObject {
public:
    explicit IncomingObject(ObjectFolder& folder) : m_folder(folder) {}
    ~IncomingObject() { Drop(); }
    IncomingObject(const IncomingObject&) = delete;
    IncomingObject& operator=(const IncomingObject&) = delete;

    /// Where the data set goes that a C-STORE request has announced; null: there is no such file, and Finish tells the
    /// status. @param context its presentation context @param syntaxUid transfer syntax of it; may be null
    VDicomFile* Begin(unsigned char context, VDicomDS& command, const char* syntaxUid, const std::string& sourceTitle);
    /// The object is here. @param data null: the message had none @return the status for the response
    unsigned short Finish(VDicomDS* data);
    /// Whether one has been announced that has not come yet.
    bool IsArriving() const { return m_isArriving; }
    /// It will not come; nothing is left.
    void Drop();

    /// The request that announced an object.
    struct Request {
        unsigned char context = 0;
        unsigned short messageID = 0;
        std::string classUid, instanceUid;
    };
    /// What came after Begin cannot be kept; nothing is left of it. @param code of VDicomNet::OnReceive
    /// @param request receives what is to be answered @return the status for the response; 0: the code says something
    /// else, or there is no object on its way
    unsigned short GiveUp(int code, Request& request);

private:
    unsigned short Refuse(unsigned short status, const std::string& text);
    unsigned short RefuseUnwritten(const std::error_code& error);
    unsigned short Keep();
    void RemovePart();

    ObjectFolder& m_folder;
    VDicomFile m_file;
    std::string m_part;
    Request m_request;
    bool m_isArriving = false;
    unsigned short m_refusal = 0;
};

} // namespace program

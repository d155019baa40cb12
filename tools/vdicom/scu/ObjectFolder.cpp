#include "scu/ObjectFolder.h"

#include "Input.h"
#include "Message.h"
#include "scu/Peer.h"
#include "scu/Uid.h"

#include "VDicomUID.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

namespace program {

namespace {

namespace fs = std::filesystem;

constexpr VDicomULong kAffectedClass = 0x00000002, kCommandField = 0x00000100, kMessageID = 0x00000110,
                      kAffectedInstance = 0x00001000, kSopInstance = 0x00080018;
constexpr unsigned short kStoreRequest = 0x0001, kShort = 1, kText = 5; // the last two: value types of FindGetValue
constexpr std::uint64_t kMostNamed = 20;
constexpr std::size_t kLongestName = 256;
// PS3.4 B.2.3: out of resources, another object than announced; PS3.7 C.5.12: no SOP Instance UID.
constexpr unsigned short kOutOfResources = 0xA700, kMismatch = 0xA900, kInvalidInstance = 0x0117;

std::string TextOf(VDicomDS& ds, VDicomULong tag) {
    char text[65] = "";
    ds.FindGetValue(nullptr, tag, kText, text, sizeof text);
    VDicomDS::DelSpaces(text);
    return text;
}

std::error_code ErrorOf(const VDicomFile& file) { return {file.GetError(), std::system_category()}; }

void Put16(std::string& bytes, std::size_t number) {
    bytes += static_cast<char>(number & 0xFF);
    bytes += static_cast<char>(number >> 8 & 0xFF);
}

void PutElement(std::string& bytes, unsigned int element, const char* vr, std::string value) {
    if (value.size() % 2 != 0)
        value += std::string_view(vr) == "UI" ? '\0' : ' ';
    Put16(bytes, 2);
    Put16(bytes, element);
    bytes += vr;
    if (std::string_view(vr) == "OB") {
        Put16(bytes, 0);
        Put16(bytes, value.size());
        Put16(bytes, value.size() >> 16);
    } else {
        Put16(bytes, value.size());
    }
    bytes += value;
}

} // namespace

std::string FileMeta(const std::string& classUid, const std::string& instanceUid, const std::string& syntaxUid,
                     const std::string& sourceTitle) {
    std::string meta;
    PutElement(meta, 0x0001, "OB", std::string("\0\1", 2));
    PutElement(meta, 0x0002, "UI", classUid);
    PutElement(meta, 0x0003, "UI", instanceUid);
    PutElement(meta, 0x0010, "UI", syntaxUid);
    PutElement(meta, 0x0012, "UI", kImplementationClass);
    PutElement(meta, 0x0013, "SH", kImplementationVersion);
    if (!sourceTitle.empty())
        PutElement(meta, 0x0016, "AE", sourceTitle);
    std::string length;
    Put16(length, meta.size());
    Put16(length, meta.size() >> 16);
    std::string bytes(128, '\0');
    bytes += "DICM";
    PutElement(bytes, 0x0000, "UL", length);
    return bytes + meta;
}

bool IsStoreRequest(VDicomDS& command) {
    unsigned short field = 0;
    command.FindGetValue(nullptr, kCommandField, kShort, &field, sizeof field);
    return field == kStoreRequest;
}

ObjectFolder::ObjectFolder(std::string path, bool overwrite) : m_path(std::move(path)), m_overwrite(overwrite) {}

std::string ObjectFolder::Prepare() {
    std::error_code error;
    fs::create_directories(fs::u8path(m_path), error);
    if (error || !IsFolder(m_path))
        return fmt::format("{}: {}", m_path, error ? error.message() : "is no folder");
    char uid[65] = "";
    if (!VDicomUID::Generate(uid))
        return GetErrorText(DICOM_ERROR_MEMORY);
    m_tag = std::string(uid).substr(5, 20);
    return {};
}

std::string ObjectFolder::PathOf(const std::string& name) const {
    const std::u8string path = (fs::u8path(m_path) / fs::u8path(name)).u8string();
    return {path.begin(), path.end()};
}

std::string ObjectFolder::NewPart() { return PathOf(fmt::format(".vdicom-{}-{}.part", m_tag, ++m_parts)); }

VDicomFile* IncomingObject::Begin(unsigned char context, VDicomDS& command, const char* syntaxUid,
                                  const std::string& sourceTitle) {
    Drop();
    m_refusal = 0;
    m_isArriving = true;
    m_request = {context, 0, TextOf(command, kAffectedClass), TextOf(command, kAffectedInstance)};
    command.FindGetValue(nullptr, kMessageID, kShort, &m_request.messageID, sizeof m_request.messageID);
    // What a peer calls an object becomes a file name: nothing but digits and dots may.
    if (!IsUid(m_request.instanceUid) || !IsUid(m_request.classUid)) {
        m_refusal = Refuse(kInvalidInstance, "not taken: its SOP Instance UID or its class is no UID");
        return nullptr;
    }
    const std::string path = m_folder.NewPart();
    if (!m_file.Open(path.c_str(), DICOM_FILE_CREATE | DICOM_FILE_READ | DICOM_FILE_WRITE)) {
        m_refusal = RefuseUnwritten(ErrorOf(m_file));
        return nullptr;
    }
    m_part = path;
    const std::string meta =
        FileMeta(m_request.classUid, m_request.instanceUid, syntaxUid ? syntaxUid : "", sourceTitle);
    if (m_file.Write(meta.data(), static_cast<VDicomULong>(meta.size())))
        return &m_file;
    m_refusal = RefuseUnwritten(ErrorOf(m_file));
    RemovePart();
    return nullptr;
}

unsigned short IncomingObject::Finish(VDicomDS* data) {
    m_isArriving = false;
    const unsigned short refusal = std::exchange(m_refusal, 0);
    if (refusal != 0)
        return refusal;
    if (m_part.empty())
        return Refuse(kMismatch, "not taken: a message without an object");
    const std::string uid = data ? TextOf(*data, kSopInstance) : std::string();
    if (!uid.empty() && m_request.instanceUid != uid) {
        Drop();
        return Refuse(kMismatch, fmt::format("an object was not taken: it was announced as {}, and is {}",
                                             m_request.instanceUid, uid));
    }
    return Keep();
}

// Gives the file its name.
unsigned short IncomingObject::Keep() {
    char name[kLongestName] = "";
    VDicomFile::MakeFileName(m_request.instanceUid.c_str(), DICOM_UNDEFINED, name, sizeof name);
    const std::string path = m_folder.PathOf(std::string(name) + ".dcm");
    std::error_code error;
    if (!m_folder.m_overwrite && fs::exists(fs::u8path(path), error)) {
        Say(path, "is there already and was kept; --overwrite replaces it");
        ++m_folder.m_kept;
        Drop();
        return 0;
    }
    const VDicomUInt64 size = m_file.GetSize64();
    if (!m_file.Close()) {
        const unsigned short status = RefuseUnwritten(ErrorOf(m_file));
        Drop();
        return status;
    }
    fs::rename(fs::u8path(m_part), fs::u8path(path), error);
    if (error) {
        const unsigned short status = RefuseUnwritten(error);
        Drop();
        return status;
    }
    m_part.clear();
    ++m_folder.m_written;
    m_folder.m_bytes += size;
    return 0;
}

void IncomingObject::Drop() {
    m_isArriving = false;
    RemovePart();
}

void IncomingObject::RemovePart() {
    if (m_part.empty())
        return;
    m_file.Close(1);
    std::error_code error;
    fs::remove(fs::u8path(m_part), error);
    m_part.clear();
}

unsigned short IncomingObject::GiveUp(int code, Request& request) {
    // What is refused has no file, and a limit.
    const bool isTooLong = code == DICOM_ERROR_SIZE && m_refusal != 0;
    if (!m_isArriving || (code != DICOM_ERROR_WRITE && code != DICOM_ERROR_OPEN && !isTooLong))
        return 0;
    request = m_request;
    const std::error_code error = ErrorOf(m_file);
    Drop();
    if (const unsigned short refusal = std::exchange(m_refusal, 0); refusal != 0)
        return refusal;
    return RefuseUnwritten(error);
}

// One object less, and the next may find room.
unsigned short IncomingObject::RefuseUnwritten(const std::error_code& error) {
    ++m_folder.m_unwritten;
    m_folder.m_isFull = !error || error == std::errc::no_space_on_device;
    m_folder.m_reason = error ? error.message() : "is the disk full?";
    return Refuse(kOutOfResources, "not written: " + m_folder.m_reason);
}

unsigned short IncomingObject::Refuse(unsigned short status, const std::string& text) {
    const std::string uid = IsUid(m_request.instanceUid) ? m_request.instanceUid : std::string();
    if (m_folder.m_refusals.size() < ObjectFolder::kMostRefusals)
        m_folder.m_refusals.push_back({uid, status, text});
    if (++m_folder.m_failed == kMostNamed + 1)
        SayPlain(fmt::format("  and more; --json names up to {}", ObjectFolder::kMostRefusals));
    else if (m_folder.m_failed <= kMostNamed)
        Say(uid.empty() ? "an object" : uid, text);
    return status;
}

} // namespace program

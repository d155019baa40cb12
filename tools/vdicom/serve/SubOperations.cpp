#include "serve/SubOperations.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace program {

namespace {

constexpr VDicomULong kFailedList = 0x00080058;
// What fits an element of 16-bit length in explicit VR (PS3.5 7.1.2).
constexpr std::size_t kMostFailedBytes = 65534;

} // namespace

SubOperations::SubOperations(std::unique_ptr<archive::Retrieval> retrieval)
    : m_retrieval(std::move(retrieval)), m_total(m_retrieval->Total()) {
    for (const archive::RetrievedSyntax& syntax : m_retrieval->Syntaxes())
        m_kinds.push_back({syntax.classUid, syntax.transferSyntax});
}

unsigned short SubOperations::Number(std::uint64_t count) {
    return static_cast<unsigned short>(std::min<std::uint64_t>(count, 0xFFFF));
}

const archive::RetrievedObject* SubOperations::Next() {
    if (m_underWay)
        return nullptr;
    while (!m_has && m_retrieval->Next(m_object)) {
        m_kind = KindOf(m_object);
        m_has = m_kind != m_kinds.size();
        if (!m_has)
            Fail("it was stored again meanwhile, in another class or transfer syntax; fetch it again");
    }
    return m_has ? &m_object : nullptr;
}

std::size_t SubOperations::KindOf(const archive::RetrievedObject& object) const {
    const auto same = [&](const ObjectKind& kind) {
        return kind.classUid == object.classUid && kind.syntaxUid == object.transferSyntax;
    };
    return static_cast<std::size_t>(std::find_if(m_kinds.begin(), m_kinds.end(), same) - m_kinds.begin());
}

// It may have been stored again while the association was made, and its file have gone.
unsigned int SubOperations::Load() {
    const unsigned int code = m_ds.LoadDS(m_object.path.c_str(), 0);
    archive::RetrievedObject now;
    if (code == DICOM_OK || !m_retrieval->Find(now) || now.path == m_object.path || KindOf(now) != m_kind)
        return code;
    m_object = std::move(now);
    return m_ds.LoadDS(m_object.path.c_str(), 0);
}

void SubOperations::Send(StoreChannel& channel) {
    const StoreContext* context = ChooseContext(channel.Contexts(), {m_object.classUid, m_object.transferSyntax});
    if (context == nullptr)
        return Fail("the peer did not accept its class and transfer syntax");
    m_ds.ResetDS();
    unsigned int code = Load();
    if (code == DICOM_OK) {
        m_messageId = channel.NextMessageId();
        code = channel.Store(context->id, m_messageId, m_object, m_ds);
    }
    if (code != DICOM_OK)
        return Fail(GetErrorText(code));
    m_underWay = true;
}

void SubOperations::Fail(const std::string& reason) {
    ++m_failed;
    m_reason = reason;
    m_failedInstances.push_back(m_object.instanceUid);
    m_has = m_underWay = false;
    m_answer.reset();
    m_ds.ResetDS();
}

bool SubOperations::OnStored(unsigned short messageId, unsigned short status) {
    if (!m_underWay || messageId != m_messageId)
        return false;
    m_answer = status;
    return true;
}

void SubOperations::TakeAnswer() {
    const unsigned short status = *std::exchange(m_answer, std::nullopt);
    if (status != 0 && (status & 0xF000) != 0xB000) {
        return Fail(fmt::format("the peer answered with status {:04X}", static_cast<unsigned int>(status)));
    }
    ++(status == 0 ? m_completed : m_warnings);
    m_has = m_underWay = false;
    m_ds.ResetDS();
}

void SubOperations::OnLost(const std::string& reason) {
    if (m_underWay)
        Fail(reason);
}

unsigned short SubOperations::Remaining() const {
    const std::uint64_t answered = Answered();
    return Number(m_total - std::min(m_total, answered));
}

unsigned short SubOperations::FinalStatus(unsigned short allFailed) const {
    if (m_failed + m_warnings == 0)
        return archive::status::kSuccess;
    return m_completed + m_warnings == 0 ? allFailed : static_cast<unsigned short>(0xB000);
}

VDicomDS* SubOperations::FailedList(VDicomDS& ds) const {
    if (m_failedInstances.empty())
        return nullptr;
    std::string list;
    for (const std::string& instance : m_failedInstances) {
        if (list.size() + instance.size() + 1 > kMostFailedBytes)
            break;
        list += (list.empty() ? "" : "\\") + instance;
    }
    DICOMELEMENT* e = ds.InsertElement(nullptr, 1, kFailedList, vdicom::vr::UI, 0, 0);
    return e != nullptr && ds.SetUtf8Value(e, list.c_str()) != 0 ? &ds : nullptr;
}

} // namespace program

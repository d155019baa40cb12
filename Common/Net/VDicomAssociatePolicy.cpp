#include "VDicomAssociatePolicy.h"

#include "AssociateRecord.h"
#include "Guarded.h"

#include <limits>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace vdicom {

namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

template <class Value> using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;
using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;

struct Roles {
    bool user = true;
    bool provider = false;
};

/// What is said of one abstract syntax, or of all others.
struct Rule {
    bool accepted = false;
    TextMap<std::size_t> ranks; ///< transfer syntaxes with their place, 0 the best
    std::optional<Roles> roles;
    std::vector<unsigned char> extended;
};

constexpr std::size_t kNoRank = std::numeric_limits<std::size_t>::max();
constexpr VDicomULong kMaxExtended = 65000;

} // namespace

struct PolicyState {
    Rule others;
    TextMap<Rule> rules;
    bool anyTransfer = false;
    unsigned int preference = DICOM_PREFER_ACCEPTOR;
    Title called;
    TextSet calling;
    VDicomULong maxLength = 16384;
    Title implementClass;
    FixedText<kMaxVersionName> implementVersion;
    unsigned short invoked = 1;
    unsigned short performed = 1;

    Rule& RuleFor(const char* abstractSyntax) { return abstractSyntax == nullptr ? others : rules[abstractSyntax]; }
    const Rule* Find(const char* abstractSyntax) const {
        const auto found = rules.find(std::string_view(abstractSyntax));
        return found == rules.end() ? nullptr : &found->second;
    }
};

namespace {

bool IsTitleOrNull(const char* text) { return text == nullptr || Title::Fits(text); }

/// What `work` makes of the state, which is made when there is none.
template <class Work> unsigned int Change(PolicyState*& state, Work work) {
    return Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&] {
        if (state == nullptr)
            state = new PolicyState;
        work(*state);
        return DICOM_OK;
    });
}

/// The smaller of two numbers of which 0 means any.
unsigned short Smaller(unsigned short left, unsigned short right) {
    return left == 0 ? right : right == 0 ? left : std::min(left, right);
}

class Answering {
public:
    Answering(const PolicyState& policy, const VDicomAssociate& request, VDicomAssociate& accept)
        : m_policy(policy), m_request(request), m_accept(accept) {}

    /// The answer to the whole; `accept` is filled when it is accepted.
    DICOMASSOCIATEANSWER Answer() {
        m_accept.Reset(0);
        // Result 1: permanent; source 1: the user, 2: the protocol (PS3.8 Table 9-21).
        if ((m_request.GetVersion() & 1) == 0)
            return {0, 1, 2, 2, 0};
        if (std::strcmp(m_request.GetApplication(), m_accept.GetApplication()) != 0)
            return {0, 1, 1, 2, 0};
        if (m_policy.called.size != 0 && m_policy.called.View() != m_request.GetCalled())
            return {0, 1, 1, 7, 0};
        if (!m_policy.calling.empty() && !m_policy.calling.contains(std::string_view(m_request.GetCalling())))
            return {0, 1, 1, 3, 0};
        DICOMASSOCIATEANSWER answer{1, 0, 0, 0, 0};
        for (int i = 0; i < m_request.GetPresentationCount(); ++i) {
            if (Context(m_request.GetPresentation(i)))
                ++answer.nContext;
        }
        Self();
        return answer;
    }

private:
    void Check(unsigned int code) const {
        if (code == DICOM_ERROR_MEMORY)
            throw std::bad_alloc();
    }

    void Self() {
        Check(m_accept.SetCalled(m_request.GetCalled()));
        Check(m_accept.SetCalling(m_request.GetCalling()));
        Check(m_accept.SetMaxLength(1, m_policy.maxLength));
        if (m_policy.implementClass.size != 0)
            Check(m_accept.SetImplementClass(1, m_policy.implementClass.chars));
        if (m_policy.implementVersion.size != 0)
            Check(m_accept.SetImplementVersion(1, m_policy.implementVersion.chars));
        if (m_request.IsAsyncOperations() != 0)
            Check(m_accept.SetAsyncOperations(1, Smaller(m_request.GetInvokedOperations(), m_policy.invoked),
                                              Smaller(m_request.GetPerformedOperations(), m_policy.performed)));
    }

    /// Answers one context. @return whether it is accepted
    bool Context(unsigned char id) {
        const char* abstractSyntax = m_request.GetAbstract(id);
        const Rule* rule = m_policy.Find(abstractSyntax);
        const bool known = m_policy.others.accepted || (rule != nullptr && rule->accepted);
        const char* chosen = known ? Choose(id, rule) : nullptr;
        const unsigned char result = chosen != nullptr ? DICOM_PRESENTATION_ACCEPTED
                                     : known           ? DICOM_PRESENTATION_TRANSFER_SYNTAXES
                                                       : DICOM_PRESENTATION_ABSTRACT_SYNTAX;
        // An answer has one transfer syntax whatever the result; of a rejected context nobody may look at it.
        if (chosen == nullptr)
            chosen = m_request.GetTransferCount(id) > 0 ? m_request.GetTransfer(id, 0) : "1.2.840.10008.1.2";
        Check(m_accept.AddPresentation(id, result, abstractSyntax));
        Check(m_accept.AddTransfer(id, chosen));
        if (result != DICOM_PRESENTATION_ACCEPTED)
            return false;
        if (m_request.IsRoleSelect(id) != 0) {
            const Roles roles = rule != nullptr && rule->roles ? *rule->roles : m_policy.others.roles.value_or(Roles{});
            Check(m_accept.SetRoleSelect(id, 1, m_request.GetUserRole(id) != 0 && roles.user,
                                         m_request.GetProviderRole(id) != 0 && roles.provider));
        }
        if (m_request.GetLengthExtended(id) != 0 && rule != nullptr)
            Check(m_accept.SetExtended(id, rule->extended.data(), static_cast<VDicomULong>(rule->extended.size())));
        return true;
    }

    const char* Choose(unsigned char id, const Rule* rule) const {
        const auto& ranks = rule != nullptr && !rule->ranks.empty() ? rule->ranks : m_policy.others.ranks;
        const char* best = nullptr;
        const char* other = nullptr;
        std::size_t bestRank = kNoRank;
        const int count = m_request.GetTransferCount(id);
        for (int i = 0; i < count && bestRank != 0; ++i) {
            const char* transfer = m_request.GetTransfer(id, i);
            const auto found = ranks.find(std::string_view(transfer));
            if (found == ranks.end()) {
                other = other == nullptr ? transfer : other;
            } else if (found->second < bestRank) {
                best = transfer;
                bestRank = m_policy.preference == DICOM_PREFER_REQUESTOR ? 0 : found->second;
            }
        }
        return best == nullptr && m_policy.anyTransfer ? other : best;
    }

    const PolicyState& m_policy;
    const VDicomAssociate& m_request;
    VDicomAssociate& m_accept;
};

} // namespace

} // namespace vdicom

using namespace vdicom;

VDicomAssociatePolicy::VDicomAssociatePolicy() : m_pState(nullptr) {}

VDicomAssociatePolicy::~VDicomAssociatePolicy() { delete m_pState; }

void VDicomAssociatePolicy::Reset() {
    delete m_pState;
    m_pState = nullptr;
}

unsigned int VDicomAssociatePolicy::AddAbstract(const char* abstractSyntax) {
    if (!IsTitleOrNull(abstractSyntax))
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) { state.RuleFor(abstractSyntax).accepted = true; });
}

unsigned int VDicomAssociatePolicy::AddTransfer(const char* abstractSyntax, const char* transferSyntax) {
    if (!IsTitleOrNull(abstractSyntax) || !Title::Fits(transferSyntax))
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) {
        Rule& rule = state.RuleFor(abstractSyntax);
        rule.ranks.emplace(transferSyntax, rule.ranks.size());
        if (abstractSyntax != nullptr)
            rule.accepted = true;
    });
}

unsigned int VDicomAssociatePolicy::AcceptAnyTransfer(unsigned int bAccept) {
    return Change(m_pState, [=](PolicyState& state) { state.anyTransfer = bAccept != 0; });
}

unsigned int VDicomAssociatePolicy::SetPreference(unsigned int preference) {
    if (preference > DICOM_PREFER_REQUESTOR)
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) { state.preference = preference; });
}

unsigned int VDicomAssociatePolicy::AcceptRoles(const char* abstractSyntax, unsigned int user, unsigned int provider) {
    if (!IsTitleOrNull(abstractSyntax))
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) {
        state.RuleFor(abstractSyntax).roles = Roles{user != 0, provider != 0};
    });
}

unsigned int VDicomAssociatePolicy::SetExtended(const char* abstractSyntax, const unsigned char* data,
                                                VDicomULong length) {
    if (!Title::Fits(abstractSyntax) || (data == nullptr && length != 0) || length > kMaxExtended)
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState,
                  [=](PolicyState& state) { state.RuleFor(abstractSyntax).extended.assign(data, data + length); });
}

unsigned int VDicomAssociatePolicy::SetCalled(const char* title) {
    if (!IsTitleOrNull(title))
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) { state.called.Assign(title == nullptr ? "" : title); });
}

unsigned int VDicomAssociatePolicy::AddCalling(const char* title) {
    if (!Title::Fits(title))
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) { state.calling.emplace(title); });
}

unsigned int VDicomAssociatePolicy::SetMaxLength(VDicomULong length) {
    if (length < 8 || length % 2 != 0)
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) { state.maxLength = length; });
}

unsigned int VDicomAssociatePolicy::SetImplementation(const char* classUID, const char* versionName) {
    using VersionName = FixedText<kMaxVersionName>;
    if (!IsTitleOrNull(classUID) || !(versionName == nullptr || VersionName::Fits(versionName)))
        return DICOM_ERROR_PARAMETER;
    return Change(m_pState, [=](PolicyState& state) {
        state.implementClass.Assign(classUID == nullptr ? "" : classUID);
        state.implementVersion.Assign(versionName == nullptr ? "" : versionName);
    });
}

unsigned int VDicomAssociatePolicy::SetAsyncOperations(unsigned short invoked, unsigned short performed) {
    return Change(m_pState, [=](PolicyState& state) {
        state.invoked = invoked;
        state.performed = performed;
    });
}

unsigned int VDicomAssociatePolicy::Answer(const VDicomAssociate& request, VDicomAssociate& accept,
                                           DICOMASSOCIATEANSWER* answer) const {
    if (&request == &accept)
        return DICOM_ERROR_PARAMETER;
    DICOMASSOCIATEANSWER result{};
    const unsigned int code = Guarded<unsigned int>(DICOM_ERROR_MEMORY, [&] {
        const PolicyState none;
        result = Answering(m_pState == nullptr ? none : *m_pState, request, accept).Answer();
        return DICOM_OK;
    });
    if (code != DICOM_OK)
        accept.Reset(0);
    if (answer != nullptr)
        *answer = result;
    return code;
}

#include "scu/StorePlan.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>

namespace program {

namespace {

/// In the order in which they are proposed and liked.
constexpr std::array<std::string_view, 4> kUncompressed = {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2",
                                                           "1.2.840.10008.1.2.1.99", "1.2.840.10008.1.2.2"};

/// Contexts that must stand in one association, and the kinds that need them.
struct Unit {
    std::vector<StoreContext> contexts;
    std::vector<std::size_t> kinds;
};

StoreContext OneSyntax(const ObjectKind& kind) { return {0, kind.classUid, {kind.syntaxUid}}; }

/// The uncompressed syntaxes that no context of the unit proposes.
void AddOtherSyntaxes(Unit& unit) {
    StoreContext others{0, unit.contexts.front().classUid, {}};
    for (const std::string_view syntax : kUncompressed) {
        const auto has = [syntax](const StoreContext& context) { return context.syntaxes.front() == syntax; };
        if (std::none_of(unit.contexts.begin(), unit.contexts.end(), has))
            others.syntaxes.emplace_back(syntax);
    }
    if (!others.syntaxes.empty())
        unit.contexts.push_back(std::move(others));
}

std::vector<Unit> UnitsOf(const std::vector<ObjectKind>& kinds) {
    std::vector<Unit> units;
    std::map<std::string, std::size_t> uncompressedUnit; // by class
    std::set<std::size_t> needOthers;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const ObjectKind& kind = kinds[i];
        std::size_t at = units.size();
        if (IsUncompressed(kind.syntaxUid)) {
            at = uncompressedUnit.try_emplace(kind.classUid, at).first->second;
            needOthers.insert(at);
        }
        if (at == units.size())
            units.emplace_back();
        units[at].contexts.push_back(OneSyntax(kind));
        units[at].kinds.push_back(i);
    }
    for (const std::size_t at : needOthers)
        AddOtherSyntaxes(units[at]);
    return units;
}

} // namespace

bool IsUncompressed(const std::string& syntaxUid) {
    return std::find(kUncompressed.begin(), kUncompressed.end(), syntaxUid) != kUncompressed.end();
}

StorePlan::StorePlan(const std::vector<ObjectKind>& kinds) : m_associationOf(kinds.size()) {
    for (Unit& unit : UnitsOf(kinds)) {
        if (m_associations.empty() || m_associations.back().size() + unit.contexts.size() > kMostContexts)
            m_associations.emplace_back();
        std::vector<StoreContext>& contexts = m_associations.back();
        for (StoreContext& context : unit.contexts) {
            context.id = static_cast<unsigned char>(2 * contexts.size() + 1);
            contexts.push_back(std::move(context));
        }
        for (const std::size_t kind : unit.kinds)
            m_associationOf[kind] = m_associations.size() - 1;
    }
}

const StoreContext* ChooseContext(const std::vector<StoreContext>& accepted, const ObjectKind& kind) {
    const auto find = [&](std::string_view syntax) -> const StoreContext* {
        for (const StoreContext& context : accepted) {
            if (context.classUid == kind.classUid && context.syntaxes.front() == syntax)
                return &context;
        }
        return nullptr;
    };
    const StoreContext* found = find(kind.syntaxUid);
    if (!found && IsUncompressed(kind.syntaxUid)) {
        for (auto syntax = kUncompressed.begin(); !found && syntax != kUncompressed.end(); ++syntax)
            found = find(*syntax);
    }
    return found;
}

} // namespace program

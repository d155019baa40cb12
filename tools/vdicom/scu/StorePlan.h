/// @file StorePlan.h
/// Which presentation contexts files need, in how many associations, and in which of the accepted ones a file goes.
/// Pure: knows UIDs alone.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace program {

/// What decides about a file's context.
struct ObjectKind {
    std::string classUid;
    std::string syntaxUid;
};

/// A presentation context as it is proposed or, with one transfer syntax, as it was accepted.
struct StoreContext {
    unsigned char id = 0;
    std::string classUid;
    std::vector<std::string> syntaxes;
};

/// One of the four syntaxes that can be made of each other without touching pixels (PS3.5 A.1, A.2, A.3, A.5).
bool IsUncompressed(const std::string& syntaxUid);

/// Every kind gets a context with its own transfer syntax alone, so that a peer that takes it gets the file as it is;
/// a SOP class with uncompressed files gets one more with the remaining uncompressed syntaxes.
class StorePlan {
public:
    static constexpr std::size_t kMostContexts = 128;

    explicit StorePlan(const std::vector<ObjectKind>& kinds);

    std::size_t CountAssociations() const { return m_associations.size(); }
    const std::vector<StoreContext>& Contexts(std::size_t association) const { return m_associations[association]; }
    /// Which association has the contexts of a kind.
    std::size_t AssociationOf(std::size_t kind) const { return m_associationOf[kind]; }

private:
    std::vector<std::vector<StoreContext>> m_associations;
    std::vector<std::size_t> m_associationOf;
};

/// The accepted context for a kind: its own syntax or, when that is uncompressed, another uncompressed one.
/// @return null: there is none
const StoreContext* ChooseContext(const std::vector<StoreContext>& accepted, const ObjectKind& kind);

} // namespace program

#include "AssociateRecord.h"

namespace vdicom {

OwnedText CopyText(std::string_view text) {
    OwnedText copy(new char[text.size() + 1]);
    copy[text.copy(copy.get(), text.size())] = '\0';
    return copy;
}

void AssociateRecord::Reset(unsigned int isRequest) {
    request = isRequest;
    version = 1;
    called.Assign({});
    calling.Assign({});
    application.Assign("1.2.840.10008.3.1.1.1");
    hasMaxLength = 1;
    maxLength = 16384;
    hasImplementClass = 0;
    implementClass.Assign({});
    hasAsyncOperations = 0;
    invoked = 1;
    performed = 1;
    hasImplementVersion = 0;
    implementVersion.Assign({});
    contexts.clear();
    m_inUse.reset();
    userItems.clear();
}

std::size_t AssociateRecord::IndexOf(std::uint8_t id) const {
    if (!m_inUse[id])
        return contexts.size();
    // Nearly everybody numbers the contexts 1, 3, 5 ...
    std::size_t index = id / 2u;
    if (index >= contexts.size() || contexts[index]->id != id) {
        index = 0;
        while (contexts[index]->id != id)
            ++index;
    }
    return index;
}

PresentationContext* AssociateRecord::Find(std::uint8_t id) {
    const std::size_t index = IndexOf(id);
    return index < contexts.size() ? contexts[index].get() : nullptr;
}

const PresentationContext* AssociateRecord::Find(std::uint8_t id) const {
    const std::size_t index = IndexOf(id);
    return index < contexts.size() ? contexts[index].get() : nullptr;
}

const PresentationContext* AssociateRecord::FindAbstract(std::string_view uid) const {
    for (const auto& context : contexts) {
        if (context->abstractSyntax.View() == uid)
            return context.get();
    }
    return nullptr;
}

PresentationContext* AssociateRecord::Add(std::uint8_t id, std::uint8_t result, std::string_view abstractSyntax) {
    if (m_inUse[id])
        return nullptr;
    auto context = std::make_unique<PresentationContext>();
    context->id = id;
    context->result = result;
    context->abstractSyntax.Assign(abstractSyntax);
    contexts.push_back(std::move(context));
    m_inUse.set(id);
    return contexts.back().get();
}

void AssociateRecord::Remove(std::uint8_t id) {
    const std::size_t index = IndexOf(id);
    if (index == contexts.size())
        return;
    contexts.erase(contexts.begin() + static_cast<std::ptrdiff_t>(index));
    m_inUse.reset(id);
}

bool AssociateRecord::Rename(std::size_t index, std::uint8_t id) {
    if (index >= contexts.size() || m_inUse[id])
        return false;
    m_inUse.reset(contexts[index]->id);
    contexts[index]->id = id;
    m_inUse.set(id);
    return true;
}

} // namespace vdicom

#include "ClassChoice.h"

#include "DictTrees.h"
#include "Message.h"
#include "Needle.h"

#include "VDicomUID.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace program {

namespace {

constexpr std::size_t kMostNamed = 12;

} // namespace

DICOMIOD* ChooseClass(const std::string& text, const Options& options, int& status) {
    std::vector<DICOMIOD*> found = text.empty() ? std::vector<DICOMIOD*>() : FindClasses(text);
    if (found.size() > 1) {
        // Of names that hold the text those that begin with it are meant.
        std::vector<DICOMIOD*> first;
        std::copy_if(found.begin(), found.end(), std::back_inserter(first), [&](const DICOMIOD* node) {
            return Lower(std::string_view(node->pszName).substr(0, text.size())) == Lower(text);
        });
        if (!first.empty())
            found = std::move(first);
    }
    if (found.size() == 1)
        return found.front();
    if (found.empty()) {
        DICOMCURRENTUID today{};
        status = options.Wrong(VDicomUID::FindCurrent(text.c_str(), &today) != 0
                                   ? fmt::format("the table of classes does not hold {}", today.pszName)
                                   : fmt::format("no class is known as '{}'; 'vdicom dict iod TEXT' finds them", text));
        return nullptr;
    }
    status = kWrongUsage;
    Say(fmt::format("'{}' may mean {} classes:", text, found.size()));
    for (std::size_t i = 0; i < found.size() && i < kMostNamed; ++i)
        SayPlain(fmt::format("  {}", std::string_view(found[i]->pszName)));
    if (found.size() > kMostNamed)
        SayPlain(fmt::format("  and {} more", found.size() - kMostNamed));
    return nullptr;
}

} // namespace program

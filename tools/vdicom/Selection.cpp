#include "Selection.h"

namespace program {

Selection::Level Selection::Start(const std::vector<TagPath>& paths) {
    Level level;
    for (const TagPath& path : paths)
        level.push_back({&path, 0});
    return level;
}

Selection::Hit Selection::Match(VDicomDS& ds, const Level& level, DICOMELEMENT* parent, const DICOMELEMENT* e,
                                Level& inside) {
    inside.clear();
    for (const Open& open : level) {
        const PathStep& step = open.path->steps[open.step];
        if (!StepMatches(ds, parent, e, step))
            continue;
        if (open.step + 1 == open.path->steps.size() && !step.hasItem)
            return Hit::whole;
        inside.push_back(open);
    }
    return inside.empty() ? Hit::none : Hit::below;
}

Selection::Hit Selection::MatchItem(const Level& inside, VDicomULong number, Level& children) {
    children.clear();
    for (const Open& open : inside) {
        const PathStep& step = open.path->steps[open.step];
        if (step.item != kEveryItem && step.item != number)
            continue;
        if (open.step + 1 == open.path->steps.size())
            return Hit::whole;
        children.push_back({open.path, open.step + 1});
    }
    return children.empty() ? Hit::none : Hit::below;
}

} // namespace program

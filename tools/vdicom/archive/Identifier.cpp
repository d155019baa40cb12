#include "Identifier.h"

#include "Record.h"

#include <algorithm>

namespace archive {

namespace vr = vdicom::vr;

namespace {

constexpr VDicomULong kLongestKey = VDicomULong{2} << 20; // of a list of UIDs

Outcome Refuse(unsigned short status, std::string comment) { return {status, std::move(comment)}; }

bool ReadLevel(std::string_view text, Level& level) {
    constexpr std::string_view kNames[kLevels] = {"PATIENT", "STUDY", "SERIES", "IMAGE"};
    const auto* found = std::find(std::begin(kNames), std::end(kNames), text);
    level = static_cast<Level>(found - std::begin(kNames));
    return found != std::end(kNames);
}

bool HasLevel(Root root, Level level) {
    if (root == Root::study)
        return level != Level::patient;
    return root == Root::patient || level <= Level::study;
}

// Lists of UIDs may be longer than the values that the index keeps.
std::string TextOf(VDicomDS& ds, DICOMELEMENT* e, unsigned short vr) {
    std::string text;
    std::vector<char> scratch;
    if (e->nVR != vr::UI || e->nLength == DICOM_UNDEFINED || e->nLength > kLongestKey) {
        ReadText(ds, e, vr, scratch, text);
        return text;
    }
    text.resize(ds.GetUtf8Value(e, nullptr, 0));
    if (!text.empty()) {
        ds.GetUtf8Value(e, text.data(), static_cast<VDicomULong>(text.size()));
        text.pop_back();
    }
    return text;
}

std::string NameOf(VDicomULong tag) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string name = "(";
    for (int shift = 28; shift >= 0; shift -= 4) {
        name += kDigits[(tag >> shift) & 15];
        if (shift == 16)
            name += ',';
    }
    return name + ")";
}

/// Goes through an identifier.
class IdentifierReader {
public:
    IdentifierReader(VDicomDS& ds, const QueryOptions& options, Query& query) : m_ds(ds), m_query(query) {
        query.root = options.root;
        query.combinedDateTime = options.combinedDateTime;
    }

    Outcome Read() {
        if (Outcome outcome = FindLevel(); !outcome.IsSuccess())
            return outcome;
        for (DICOMELEMENT* e = m_ds.GetFirstElement(nullptr, 1, 1); e != nullptr; e = m_ds.GetNextElement(e, 1, 1))
            if (Outcome outcome = Take(e); !outcome.IsSuccess())
                return outcome;
        return {};
    }

    /// The unique keys of the levels above are single values.
    Outcome CheckUpperKeys() const {
        const Level top = m_query.root == Root::study ? Level::study : Level::patient;
        for (Level level = top; level < m_query.level; level = Below(level)) {
            const Attribute& unique = UniqueKeyOf(level);
            const QueryKey* key = m_query.Find(unique.tag);
            if (key == nullptr || !key->key.IsSingle())
                return Refuse(status::kDoesNotMatchClass,
                              std::string(unique.column) + " must be there with one value at this level");
        }
        return {};
    }

private:
    Outcome FindLevel() {
        DICOMELEMENT* e = m_ds.FindFirstElement(nullptr, tag::kLevel, 1);
        const std::string text = e == nullptr ? "" : TextOf(m_ds, e, vr::CS);
        if (!ReadLevel(text, m_query.level))
            return Refuse(status::kDoesNotMatchClass, "Query/Retrieve Level is missing or unknown");
        if (!HasLevel(m_query.root, m_query.level))
            return Refuse(status::kDoesNotMatchClass, "the model has no level " + text);
        return {};
    }

    Outcome Take(DICOMELEMENT* e) {
        switch (e->nTag) {
        case tag::kCharacterSet:
            m_query.characterSet = TextOf(m_ds, e, vr::CS);
            return {};
        case tag::kAvailability:
            m_query.wantsAvailability = true;
            return {};
        case tag::kLevel:
        case tag::kRetrieveAE:
        case tag::kView:
        case tag::kTimezone:
            return {};
        default:
            break;
        }
        if ((e->nTag >> 16) <= 2 || (e->nTag & 0xFFFF) == 0)
            return {};
        const Attribute* attribute = FindAttribute(e->nTag);
        if (attribute == nullptr || attribute->level > m_query.level) {
            m_query.hasUnsupportedKeys = true;
            m_query.hasUnsupportedValues = m_query.hasUnsupportedValues || e->nLength != 0;
            return {};
        }
        return TakeKey(e, *attribute);
    }

    Outcome TakeKey(DICOMELEMENT* e, const Attribute& attribute) {
        if (m_query.Find(e->nTag) != nullptr)
            return {}; // there twice: the first counts
        const std::string text = TextOf(m_ds, e, attribute.vr);
        const bool isRead = !text.empty() || e->nLength <= 2 || e->nLength == DICOM_UNDEFINED;
        const std::optional<Key> key = Key::Parse(attribute.vr, text);
        if (!isRead || !key)
            return Refuse(status::kUnableToProcess, "the value of " + NameOf(e->nTag) + " cannot be understood");
        m_query.keys.push_back({&attribute, *key});
        return {};
    }

    VDicomDS& m_ds;
    Query& m_query;
};

// The unique key of the level is always answered.
void AddUniqueKey(Query& query) {
    const Attribute& unique = UniqueKeyOf(query.level);
    if (query.Find(unique.tag) != nullptr)
        return;
    const auto place = std::find_if(query.keys.begin(), query.keys.end(),
                                    [&](const QueryKey& key) { return key.attribute->tag > unique.tag; });
    query.keys.insert(place, {&unique, Key{}});
}

// What both kinds of request have in common.
Outcome ReadKeys(VDicomDS& identifier, const QueryOptions& options, Query& query) {
    query = Query{};
    IdentifierReader reader(identifier, options, query);
    Outcome outcome = reader.Read();
    return outcome.IsSuccess() ? reader.CheckUpperKeys() : outcome;
}

} // namespace

const QueryKey* Query::Find(VDicomULong tag) const {
    const auto found =
        std::find_if(keys.begin(), keys.end(), [tag](const QueryKey& key) { return key.attribute->tag == tag; });
    return found == keys.end() ? nullptr : &*found;
}

Outcome ReadQuery(VDicomDS& identifier, const QueryOptions& options, Query& query) {
    if (Outcome outcome = ReadKeys(identifier, options, query); !outcome.IsSuccess())
        return outcome;
    AddUniqueKey(query);
    return {};
}

Outcome ReadRetrieval(VDicomDS& identifier, const QueryOptions& options, Query& query) {
    if (Outcome outcome = ReadKeys(identifier, options, query); !outcome.IsSuccess())
        return outcome;
    if (query.hasUnsupportedValues)
        return Refuse(status::kDoesNotMatchClass, "only unique keys down to the level may have values");
    for (const QueryKey& key : query.keys) {
        const bool isUnique = key.attribute == &UniqueKeyOf(key.attribute->level);
        if (!isUnique && !key.key.IsUniversal())
            return Refuse(status::kDoesNotMatchClass, std::string(key.attribute->column) + " is no key of a retrieval");
    }
    const QueryKey* wanted = query.Find(UniqueKeyOf(query.level).tag);
    if (wanted == nullptr || wanted->key.Values().empty())
        return Refuse(status::kDoesNotMatchClass,
                      std::string(UniqueKeyOf(query.level).column) + " must have a value at this level");
    std::erase_if(query.keys, [](const QueryKey& key) { return key.key.IsUniversal(); });
    return {};
}

} // namespace archive

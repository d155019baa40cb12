#include "scu/Query.h"

#include "EditValue.h"
#include "ElementEditor.h"
#include "TextReader.h"
#include "Vr.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace program {

namespace {

constexpr VDicomULong kQueryLevel = 0x00080052;

struct Level {
    QueryLevel level;
    const char* option;
    const char* value; ///< of (0008,0052)
    VDicomULong uniqueKey;
    std::vector<const char*> keys; ///< what people want to know of a match
};

const std::vector<Level>& Levels() {
    static const std::vector<Level> levels = {
        {QueryLevel::patient,
         "patient",
         "PATIENT",
         kPatientId,
         {"PatientName", "PatientID", "PatientBirthDate", "PatientSex"}},
        {QueryLevel::study,
         "study",
         "STUDY",
         kStudyUid,
         {"StudyDate", "StudyTime", "AccessionNumber", "ModalitiesInStudy", "StudyDescription", "PatientName",
          "PatientID", "PatientBirthDate", "StudyInstanceUID", "StudyID", "NumberOfStudyRelatedInstances"}},
        {QueryLevel::series,
         "series",
         "SERIES",
         kSeriesUid,
         {"Modality", "SeriesDescription", "StudyInstanceUID", "SeriesInstanceUID", "SeriesNumber",
          "NumberOfSeriesRelatedInstances"}},
        {QueryLevel::image,
         "image",
         "IMAGE",
         kInstanceUid,
         {"SOPClassUID", "SOPInstanceUID", "StudyInstanceUID", "SeriesInstanceUID", "InstanceNumber"}},
        {QueryLevel::worklist,
         "worklist",
         nullptr,
         0,
         {"AccessionNumber", "ReferringPhysicianName", "PatientName", "PatientID", "PatientBirthDate", "PatientSex",
          "StudyInstanceUID", "RequestedProcedureDescription", "RequestedProcedureID",
          "ScheduledProcedureStepSequence.Modality", "ScheduledProcedureStepSequence.ScheduledStationAETitle",
          "ScheduledProcedureStepSequence.ScheduledProcedureStepStartDate",
          "ScheduledProcedureStepSequence.ScheduledProcedureStepStartTime",
          "ScheduledProcedureStepSequence.ScheduledPerformingPhysicianName",
          "ScheduledProcedureStepSequence.ScheduledProcedureStepDescription",
          "ScheduledProcedureStepSequence.ScheduledProcedureStepID"}}};
    return levels;
}

const Level& RowOf(QueryLevel level) {
    return *std::find_if(Levels().begin(), Levels().end(), [level](const Level& row) { return row.level == level; });
}

bool IsAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool HasControls(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

/// Inserts the element with the sequences and items on the way, and sets its value as it stands: a range or a wildcard
/// is none of the forms that a value in a file has.
std::string SetKey(VDicomDS& ds, const QueryKey& key) {
    const Change change{true, key.path, {}};
    if (std::string wrong = ElementEditor(ds).Apply(change); !wrong.empty())
        return wrong;
    std::vector<DICOMELEMENT*> found;
    CollectElements(ds, nullptr, key.path, 0, found);
    if (key.value.empty() || found.empty())
        return {};
    DICOMELEMENT* e = found.front();
    const Kind kind = NatureOf(e->nVR).kind;
    if (kind == Kind::sequence)
        return "a sequence has no value; name an attribute in it: Sequence.Keyword=VALUE";
    if (kind == Kind::number || kind == Kind::bulk || e->nTag == kSpecificCharacterSet)
        return SetValueFromText(ds, e, key.value);
    return ds.SetUtf8Value(e, key.value.c_str()) ? std::string()
                                                 : "the character set cannot express the value; is it UTF-8?";
}

bool IsOf(const QueryKey& key, VDicomULong tag) { return key.path.steps.size() == 1 && key.path.steps[0].tag == tag; }

bool HasKey(const std::vector<QueryKey>& keys, VDicomULong tag, bool withValue) {
    return std::any_of(keys.begin(), keys.end(),
                       [=](const QueryKey& key) { return IsOf(key, tag) && (!withValue || !key.value.empty()); });
}

/// The deepest level whose unique key has a value.
QueryLevel LevelOfKeys(const std::vector<QueryKey>& keys) {
    for (const QueryLevel level : {QueryLevel::image, QueryLevel::series, QueryLevel::study, QueryLevel::patient}) {
        if (HasKey(keys, RowOf(level).uniqueKey, true))
            return level;
    }
    return QueryLevel::study;
}

} // namespace

std::string ParseQueryKey(const std::string& text, QueryKey& key) {
    std::size_t end = 0;
    if (std::string wrong = ParseTagPath(text, key.path, end); !wrong.empty())
        return wrong;
    if (end < text.size() && text[end] != '=')
        return fmt::format("'{}' behind the key is not understood; KEY=VALUE is", text.substr(end));
    if (end < text.size())
        key.value = text.substr(end + 1);
    if (HasControls(key.value))
        return "control characters match nothing";
    for (std::size_t i = 0; i < key.path.steps.size(); ++i) {
        PathStep& step = key.path.steps[i];
        const bool last = i + 1 == key.path.steps.size();
        if (step.isPattern)
            return "an x for any digit names no attribute";
        if (last && step.hasItem)
            return "an item is no key; name an attribute in it";
        if (!last && step.hasItem && step.item != 0)
            return "a sequence of a query has one item";
        if (!last && !step.hasItem) {
            step.hasItem = true;
            step.item = 0;
        }
        // The keyword of a repeating group means its first one.
        if (step.creator.empty())
            step.mask = DICOM_UNDEFINED;
        if (IsGroupLength(step.tag) || (step.tag >> 16) <= 2 || (step.tag >> 16) == 0xFFFE)
            return "this is no attribute of a data set";
        if (step.tag == kQueryLevel)
            return "the level is given by --level";
    }
    return {};
}

const char* Query::ClassFor(Service service) const {
    if (level == QueryLevel::worklist)
        return "1.2.840.10008.5.1.4.31";
    switch (service) {
    case Service::get:
        return patientRoot ? "1.2.840.10008.5.1.4.1.2.1.3" : "1.2.840.10008.5.1.4.1.2.2.3";
    case Service::move:
        return patientRoot ? "1.2.840.10008.5.1.4.1.2.1.2" : "1.2.840.10008.5.1.4.1.2.2.2";
    default:
        return patientRoot ? "1.2.840.10008.5.1.4.1.2.1.1" : "1.2.840.10008.5.1.4.1.2.2.1";
    }
}

std::string Query::ValueOf(VDicomULong tag) const {
    for (const QueryKey& key : keys) {
        if (IsOf(key, tag))
            return key.value;
    }
    return {};
}

void Query::Add(const char* keyword, const std::string& value) {
    QueryKey key;
    ParseTagPath(keyword, key.path);
    key.value = value;
    keys.push_back(std::move(key));
}

std::string Query::Build(VDicomDS& identifier) const {
    const Level& row = RowOf(level);
    const bool isAscii = std::all_of(keys.begin(), keys.end(), [](const QueryKey& key) { return IsAscii(key.value); });
    if (!isAscii && !HasKey(keys, kSpecificCharacterSet, false) &&
        !identifier.FindSetValue(nullptr, kSpecificCharacterSet, vr::CS, "ISO_IR 192", 1))
        return GetErrorText(DICOM_ERROR_MEMORY);
    if (row.value && !identifier.FindSetValue(nullptr, kQueryLevel, vr::CS, row.value, 1))
        return GetErrorText(DICOM_ERROR_MEMORY);
    if (defaultKeys) {
        for (const char* name : row.keys) {
            QueryKey key;
            std::string wrong = ParseQueryKey(name, key);
            if (wrong.empty())
                wrong = SetKey(identifier, key);
            if (!wrong.empty())
                return fmt::format("{}: {}", name, wrong);
        }
    }
    for (const QueryKey& key : keys) {
        if (std::string wrong = SetKey(identifier, key); !wrong.empty())
            return fmt::format("-k {}: {}", key.path.text, wrong);
    }
    return {};
}

std::vector<std::string> ReadUids(VDicomDS& ds, VDicomULong tag) {
    std::vector<std::string> uids;
    DICOMELEMENT* e = ds.FindFirstElement(nullptr, tag, 1);
    if (!e)
        return uids;
    TextReader reader(ds);
    std::string_view text = reader.Text(e, e->nLength).text;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\\'), text.size());
        if (end > 0)
            uids.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return uids;
}

QueryOptions::QueryOptions(Options& options, Service service) : m_service(service) {
    options.Texts("-k,--key", m_keys, "KEY[=VALUE]",
                  service == Service::find ? "match VALUE, or return KEY only; may be given several times"
                                           : "what is wanted; may be given several times");
    if (service == Service::find) {
        options.Choice("-l,--level", m_level, {"patient", "study", "series", "image", "worklist"},
                       "what to look for; study unless given");
        options.Flag("--only-keys", m_onlyKeys, "do not ask for the usual attributes of the level as well");
    } else {
        options.Choice("-l,--level", m_level, {"patient", "study", "series", "image"},
                       "the level of what is wanted; unless given that of the deepest unique key");
    }
    options.Choice("--model", m_model, {"patient", "study"},
                   "the root of the information model; study unless the level is patient");
}

std::string QueryOptions::Read(const Options& options, Query& query) const {
    for (const std::string& text : m_keys) {
        query.keys.emplace_back();
        if (const std::string wrong = ParseQueryKey(text, query.keys.back()); !wrong.empty())
            return fmt::format("-k {}: {}", text, wrong);
    }
    query.defaultKeys = m_service == Service::find && !m_onlyKeys;
    if (std::string wrong = ReadLevel(options.Given("--level"), query); !wrong.empty())
        return wrong;
    query.patientRoot = m_model.empty() ? query.level == QueryLevel::patient : m_model == "patient";
    if (query.level == QueryLevel::patient && !query.patientRoot)
        return "--model study has no patient level";
    if (query.level == QueryLevel::worklist && !m_model.empty())
        return "--model does not go with --level worklist";
    VDicomDS trial;
    return query.Build(trial);
}

std::string QueryOptions::ReadLevel(bool isGiven, Query& query) const {
    const auto row =
        std::find_if(Levels().begin(), Levels().end(), [this](const Level& level) { return level.option == m_level; });
    query.level = row->level;
    if (m_service == Service::find)
        return {};
    if (!isGiven)
        query.level = LevelOfKeys(query.keys);
    const Level& level = RowOf(query.level);
    if (HasKey(query.keys, level.uniqueKey, true))
        return {};
    return fmt::format("level {} needs a value of {}; give it with -k, 'vdicom find' finds it", level.option,
                       query.level == QueryLevel::patient  ? "PatientID"
                       : query.level == QueryLevel::study  ? "StudyInstanceUID"
                       : query.level == QueryLevel::series ? "SeriesInstanceUID"
                                                           : "SOPInstanceUID");
}

} // namespace program

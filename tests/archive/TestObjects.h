// Objects for archives, and storing them as a network connection would.
#pragma once

#include "Archive.h"
#include "TestFolder.h"

#include <initializer_list>
#include <utility>

namespace archive {

using Values = std::initializer_list<std::pair<VDicomULong, const char*>>;

constexpr const char* kCt = "1.2.840.10008.5.1.4.1.1.2";
constexpr const char* kMr = "1.2.840.10008.5.1.4.1.1.4";
constexpr const char* kImplicit = "1.2.840.10008.1.2";
constexpr const char* kExplicit = "1.2.840.10008.1.2.1";

inline void Set(VDicomDS& ds, const Values& values) {
    for (const auto& [tag, text] : values) {
        DICOMELEMENT* e = ds.FindFirstElement(nullptr, tag, 1);
        if (e == nullptr)
            e = ds.InsertElement(nullptr, 0, tag, 0, 0, 0);
        if (*text != '\0' || e->nLength != 0)
            ds.SetBinaryValue(e, text, static_cast<VDicomULong>(std::char_traits<char>::length(text)));
    }
}

/// An object of patient P1, study 1.1, series 1.1.1, and what `values` say.
inline void MakeObject(VDicomDS& ds, const char* instance, const Values& values = {}) {
    ds.ResetDS();
    Set(ds, {{tag::kClass, kCt},
             {tag::kInstance, instance},
             {0x00080060, "CT"},
             {tag::kPatientName, "Doe^Jane"},
             {tag::kPatientID, "P1"},
             {tag::kStudy, "1.1"},
             {tag::kSeries, "1.1.1"}});
    Set(ds, values);
}

inline std::string Text(VDicomDS& ds, VDicomULong tag, DICOMELEMENT* parent = nullptr) {
    DICOMELEMENT* e = ds.FindFirstElement(parent, tag, 1);
    char text[1024] = "";
    if (e == nullptr)
        return "none";
    ds.GetUtf8Value(e, text, sizeof text);
    return text;
}

/// Receives an object: Begin, its bytes, Commit. Flush is the caller's.
inline Outcome Receive(Archive& archive, VDicomDS& object, const StoreRequest* request = nullptr) {
    const StoreRequest own{Text(object, tag::kClass), Text(object, tag::kInstance), kExplicit, "SENDER"};
    IncomingFile file;
    VDicomDS data;
    if (Outcome outcome = archive.Store().Begin(request == nullptr ? own : *request, file); !outcome.IsSuccess())
        return outcome;
    if (object.SaveDS(&file.Stream(), DICOM_FLAG_BARE | DICOM_TS_EXPLICIT_LITTLE) != DICOM_OK)
        return {status::kOutOfResources, "the connection cannot write the object"};
    if (data.LoadDS(&file.Stream(), 0, DICOM_TS_EXPLICIT_LITTLE) != DICOM_OK)
        return {1, "the object cannot be loaded"};
    return archive.Store().Commit(file, data);
}

inline unsigned int Store(Archive& archive, const char* instance, const Values& values = {}) {
    VDicomDS object;
    MakeObject(object, instance, values);
    const Outcome outcome = Receive(archive, object);
    return outcome.IsSuccess() ? archive.Store().Flush().status : outcome.status;
}

/// The values of one attribute in all matches, joined by blanks; or the status and the comment of a refusal.
inline std::string FindAll(Archive& archive, const Values& identifier, VDicomULong wanted,
                           const QueryOptions& options = {}) {
    VDicomDS ds;
    Set(ds, identifier);
    std::unique_ptr<Find> find;
    if (const Outcome outcome = archive.StartFind(ds, options, find); !outcome.IsSuccess())
        return std::to_string(outcome.status) + " " + outcome.comment;
    std::string all;
    VDicomDS match;
    for (Step step = find->Next(match); step != Step::done; step = find->Next(match))
        if (step == Step::match)
            all += (all.empty() ? "" : " ") + Text(match, wanted);
    return all;
}

inline std::size_t FilesBelow(const std::filesystem::path& folder) {
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        files += entry.is_regular_file() && entry.path().extension() == ".dcm" ? 1 : 0;
    return files;
}

} // namespace archive

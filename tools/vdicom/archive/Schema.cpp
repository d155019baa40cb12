#include "Schema.h"

#include "Attributes.h"

#include <filesystem>

namespace archive {

namespace {

constexpr int kApplicationId = 0x76444958; // "vDIX"

std::string TableFor(Level level, const char* more) {
    std::string sql = std::string("CREATE TABLE ") + TableOf(level) + " (id INTEGER PRIMARY KEY, " + more;
    for (std::size_t i = 0; i < kAttributeCount; ++i)
        if (kAttributes[i].level == level && kAttributes[i].computed == nullptr)
            sql += std::string(", ") + kAttributes[i].column + " TEXT NOT NULL";
    return sql + ");";
}

std::string Tables() {
    // What tells patients apart is their ID and its issuer; without an ID name and date of birth.
    return TableFor(Level::patient, "identity TEXT NOT NULL UNIQUE") +
           TableFor(Level::study, "patient INTEGER NOT NULL REFERENCES patient") +
           TableFor(Level::series, "study INTEGER NOT NULL REFERENCES study, folder TEXT NOT NULL, "
                                   "instances INTEGER NOT NULL DEFAULT 0") +
           // file: the path in the archive where it is not the usual one, else empty.
           TableFor(Level::image,
                    "series INTEGER NOT NULL REFERENCES series, file TEXT NOT NULL, size INTEGER NOT NULL") +
           // Each component group of a patient's name, folded.
           "CREATE TABLE name (folded TEXT NOT NULL, patient INTEGER NOT NULL, PRIMARY KEY (folded, patient)) "
           "WITHOUT ROWID;"
           "CREATE INDEX name_patient ON name (patient);"
           "CREATE TABLE series_class (series INTEGER NOT NULL, class TEXT NOT NULL, PRIMARY KEY (series, class)) "
           "WITHOUT ROWID;"
           "CREATE INDEX patient_id ON patient (PatientID);"
           "CREATE UNIQUE INDEX study_key ON study (StudyInstanceUID, patient);"
           "CREATE INDEX study_patient ON study (patient);"
           "CREATE INDEX study_date ON study (StudyDate);"
           "CREATE INDEX study_accession ON study (AccessionNumber);"
           "CREATE UNIQUE INDEX series_key ON series (study, SeriesInstanceUID);"
           "CREATE UNIQUE INDEX instance_key ON instance (SOPInstanceUID);"
           "CREATE INDEX instance_series ON instance (series);"
           "CREATE INDEX instance_file ON instance (file) WHERE file <> '';";
}

} // namespace

void CreateSchema(Database& database) {
    database.Execute("PRAGMA journal_mode = WAL");
    const std::string sql = "BEGIN;" + Tables() + "PRAGMA application_id = " + std::to_string(kApplicationId) +
                            "; PRAGMA user_version = " + std::to_string(kSchemaVersion) + "; COMMIT;";
    database.Execute(sql.c_str());
}

void RemoveIndex(const std::string& path) {
    // The database first: without its log it would be an older one, or none.
    for (const char* suffix : {"", "-wal", "-shm"})
        std::filesystem::remove(path + suffix);
}

void PutInPlace(const std::string& made, const std::string& place) {
    RemoveIndex(place);
    std::filesystem::rename(made, place);
}

std::string CheckSchema(Database& database) {
    if (database.Number("PRAGMA application_id") != kApplicationId)
        return "this is no index of vdicom";
    if (database.Number("PRAGMA user_version") != kSchemaVersion)
        return "the index was made by another version of vdicom; make it anew with 'vdicom serve --reindex'";
    return {};
}

} // namespace archive

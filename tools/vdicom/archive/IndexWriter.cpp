#include "IndexWriter.h"

#include "Matching.h"

namespace archive {

namespace {

constexpr std::size_t kCachedRows = 4096;

std::vector<const Attribute*> ColumnsOf(Level level) {
    std::vector<const Attribute*> columns;
    for (std::size_t i = 0; i < kAttributeCount; ++i)
        if (kAttributes[i].level == level && kAttributes[i].computed == nullptr)
            columns.push_back(&kAttributes[i]);
    return columns;
}

// The column by which a row is found, below its parent.
const char* KeyColumn(Level level) { return level == Level::patient ? "identity" : UniqueKeyOf(level).column; }

const char* ParentColumn(Level level) { return level == Level::study ? "patient" : "study"; }

std::string LookSql(Level level) {
    std::string sql = level == Level::series ? "SELECT id, folder" : "SELECT id, ''";
    for (const Attribute* attribute : ColumnsOf(level))
        sql += std::string(", ") + attribute->column;
    sql += std::string(" FROM ") + TableOf(level) + " WHERE " + KeyColumn(level) + " = ?1";
    return level == Level::patient ? sql : sql + " AND " + ParentColumn(level) + " = ?2";
}

// Parameters: parent (of a patient its identity), folder of a series, columns.
std::string InsertSql(Level level) {
    std::string columns = level == Level::patient ? "identity" : ParentColumn(level);
    std::string values = "?1";
    if (level == Level::series)
        columns += ", folder";
    int parameter = 2;
    if (level == Level::series)
        values += ", ?2";
    for (const Attribute* attribute : ColumnsOf(level)) {
        columns += std::string(", ") + attribute->column;
        values += ", ?" + std::to_string(++parameter);
    }
    return std::string("INSERT INTO ") + TableOf(level) + " (" + columns + ") VALUES (" + values + ")";
}

// Parameters: id, unused, columns as for InsertSql.
std::string UpdateSql(Level level) {
    std::string sql = std::string("UPDATE ") + TableOf(level) + " SET ";
    int parameter = 2;
    for (const Attribute* attribute : ColumnsOf(level)) {
        sql += parameter == 2 ? "" : ", ";
        sql += std::string(attribute->column) + " = ?" + std::to_string(++parameter);
    }
    return sql + " WHERE id = ?1";
}

// Parameters: id or 0, series, file, size, columns.
std::string InsertInstanceSql() {
    std::string columns = "id, series, file, size";
    std::string values = "nullif(?1, 0), ?2, ?3, ?4";
    int parameter = 4;
    for (const Attribute* attribute : ColumnsOf(Level::image)) {
        columns += std::string(", ") + attribute->column;
        values += ", ?" + std::to_string(++parameter);
    }
    return "INSERT INTO instance (" + columns + ") VALUES (" + values + ")";
}

// What tells patients apart. Objects without a Patient ID are one patient's when name and date of birth agree.
std::string IdentityOf(const Record& record) {
    constexpr char kBetween = '\x1F';
    const std::string& id = record.Get(tag::kPatientID);
    if (!id.empty())
        return id + kBetween + record.Get(tag::kIssuer);
    return kBetween + record.Get(tag::kPatientName) + kBetween + record.Get(tag::kBirthDate);
}

} // namespace

std::string UsualFile(const std::string& folder, const std::string& instanceUid) {
    return folder + '/' + instanceUid + ".dcm";
}

IndexWriter::IndexWriter(Database& database)
    : m_database(database),
      m_find(database, "SELECT file, folder FROM instance JOIN series ON series.id = instance.series "
                       "WHERE SOPInstanceUID = ?1"),
      m_ofAnother(database, "SELECT 1 FROM instance WHERE file = ?1 AND file <> '' AND SOPInstanceUID <> ?2 LIMIT 1"),
      m_remove(database, "DELETE FROM instance WHERE SOPInstanceUID = ?1 RETURNING id, series, SOPClassUID"),
      m_look{
          {database, LookSql(Level::patient)}, {database, LookSql(Level::study)}, {database, LookSql(Level::series)}},
      m_insert{{database, InsertSql(Level::patient)},
               {database, InsertSql(Level::study)},
               {database, InsertSql(Level::series)}},
      m_update{{database, UpdateSql(Level::patient)},
               {database, UpdateSql(Level::study)},
               {database, UpdateSql(Level::series)}},
      m_insertInstance(database, InsertInstanceSql()), m_removeNames(database, "DELETE FROM name WHERE patient = ?1"),
      m_insertName(database, "INSERT OR IGNORE INTO name VALUES (?1, ?2)"),
      m_insertClass(database, "INSERT OR IGNORE INTO series_class VALUES (?1, ?2)"),
      m_refreshClasses(database, "DELETE FROM series_class WHERE series = ?1 AND class NOT IN "
                                 "(SELECT SOPClassUID FROM instance WHERE series = ?1)"),
      m_count(database, "UPDATE series SET instances = instances + ?2 WHERE id = ?1"),
      m_seriesLeft(database, "SELECT 1 FROM instance WHERE series = ?1 LIMIT 1") {
    for (std::size_t level = 0; level < kLevels; ++level)
        m_columns[level] = ColumnsOf(static_cast<Level>(level));
}

void IndexWriter::Begin() {
    if (m_open)
        return;
    m_database.Execute("BEGIN IMMEDIATE");
    m_open = true;
}

void IndexWriter::Commit() {
    if (!m_open)
        return;
    for (const auto& [series, more] : m_more)
        m_count.BindAll(series, more).Run();
    m_more.clear();
    m_database.Execute("COMMIT");
    m_open = false;
}

void IndexWriter::SetLasting(bool lasting) {
    if (lasting != m_lasting)
        m_database.Execute(lasting ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    m_lasting = lasting;
}

void IndexWriter::Rollback() {
    Forget();
    m_more.clear();
    if (!m_open)
        return;
    m_open = false;
    // SQLite may have rolled back by itself.
    if (sqlite3_get_autocommit(m_database.Handle()) == 0)
        m_database.Execute("ROLLBACK");
}

void IndexWriter::Forget() {
    for (Cache& cache : m_cache)
        cache.clear();
    m_classes.clear();
}

std::optional<std::string> IndexWriter::Find(const std::string& instanceUid) {
    std::optional<std::string> path;
    if (m_find.BindAll(std::string_view(instanceUid)).Step()) {
        path = std::string(m_find.Text(0));
        if (path->empty())
            path = UsualFile(std::string(m_find.Text(1)), instanceUid);
    }
    m_find.Reset();
    return path;
}

bool IndexWriter::IsOfAnother(const std::string& path, const std::string& instanceUid) {
    const bool isFound = m_ofAnother.BindAll(std::string_view(path), std::string_view(instanceUid)).Step();
    m_ofAnother.Reset();
    return isFound;
}

bool IndexWriter::Look(Level level, std::int64_t parent, std::string_view key, Row& row) {
    Statement& look = m_look[Number(level)];
    look.Bind(1, key);
    if (level != Level::patient)
        look.Bind(2, parent);
    const bool found = look.Step();
    if (found) {
        row.id = look.Number(0);
        row.folder = look.Text(1);
        for (std::size_t i = 0; i < row.values.size(); ++i)
            row.values[i] = look.Text(static_cast<int>(i + 2));
    }
    look.Reset();
    return found;
}

// Takes over what the object says. @return whether anything changed
bool IndexWriter::Merge(Level level, const Record& record, Row& row) const {
    bool changed = false;
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const std::string& value = record[*m_columns[Number(level)][i]];
        if (value.empty() || value == row.values[i])
            continue;
        row.values[i] = value;
        changed = true;
    }
    return changed;
}

void IndexWriter::Insert(Level level, std::int64_t parent, std::string_view key, Row& row) {
    Statement& insert = m_insert[Number(level)];
    if (level == Level::patient)
        insert.Bind(1, key);
    else
        insert.Bind(1, parent);
    if (level == Level::series)
        insert.Bind(2, std::string_view(row.folder));
    for (std::size_t i = 0; i < row.values.size(); ++i)
        insert.Bind(static_cast<int>(i + 3), std::string_view(row.values[i]));
    insert.Run();
    row.id = m_database.LastRow();
}

void IndexWriter::Update(Level level, const Row& row) {
    Statement& update = m_update[Number(level)];
    update.Bind(1, row.id);
    for (std::size_t i = 0; i < row.values.size(); ++i)
        update.Bind(static_cast<int>(i + 3), std::string_view(row.values[i]));
    update.Run();
}

void IndexWriter::PutNames(std::int64_t patient, const std::string& name) {
    m_removeNames.BindAll(patient).Run();
    const std::string folded = Fold(name);
    std::string_view rest = folded;
    for (;;) {
        const std::size_t end = rest.find('=');
        const std::string_view group = Trim(rest.substr(0, end));
        if (!group.empty())
            m_insertName.BindAll(group, patient).Run();
        if (end == std::string_view::npos)
            return;
        rest.remove_prefix(end + 1);
    }
}

IndexWriter::Row& IndexWriter::RowOf(Level level, std::int64_t parent, const Record& record, const std::string& path) {
    const std::string key = level == Level::patient ? IdentityOf(record) : record[UniqueKeyOf(level)];
    Cache& cache = m_cache[Number(level)];
    if (cache.size() > kCachedRows)
        cache.clear();
    const auto [place, isNew] = cache.try_emplace(std::to_string(parent) + ' ' + key);
    Row& row = place->second;
    bool isInserted = false;
    if (isNew) {
        row.values.resize(m_columns[Number(level)].size());
        isInserted = !Look(level, parent, key, row);
    }
    const bool isChanged = Merge(level, record, row);
    if (isInserted) {
        row.folder = path.substr(0, path.rfind('/'));
        Insert(level, parent, key, row);
    } else if (isChanged) {
        Update(level, row);
    }
    // Their first column is the name, that of the lowest tag.
    if (level == Level::patient && (isInserted || isChanged))
        PutNames(row.id, row.values[0]);
    return row;
}

void IndexWriter::PutClass(std::int64_t series, const std::string& classUid) {
    if (m_classes.size() > kCachedRows)
        m_classes.clear();
    if (m_classes.insert(std::to_string(series) + ' ' + classUid).second)
        m_insertClass.BindAll(series, std::string_view(classUid)).Run();
}

void IndexWriter::PutInstance(std::int64_t id, const Row& series, const Record& record, const std::string& path,
                              std::uint64_t size) {
    const bool isUsual = path == UsualFile(series.folder, record.Get(tag::kInstance));
    const std::string_view file = isUsual ? std::string_view{} : std::string_view(path);
    m_insertInstance.BindAll(id, series.id, file, static_cast<std::int64_t>(size));
    int parameter = 4;
    for (const Attribute* attribute : m_columns[Number(Level::image)])
        m_insertInstance.Bind(++parameter, std::string_view(record[*attribute]));
    m_insertInstance.Run();
    ++m_more[series.id];
}

IndexWriter::Removed IndexWriter::Remove(const std::string& instanceUid) {
    Removed removed;
    if (m_remove.BindAll(std::string_view(instanceUid)).Step()) {
        removed = {m_remove.Number(0), m_remove.Number(1), std::string(m_remove.Text(2))};
        --m_more[removed.series];
    }
    m_remove.Reset();
    return removed;
}

// A series has lost an object, or one of a class.
void IndexWriter::Refresh(std::int64_t series) {
    m_refreshClasses.BindAll(series).Run();
    m_classes.clear();
    const bool isLeft = m_seriesLeft.BindAll(series).Step();
    m_seriesLeft.Reset();
    if (!isLeft)
        Drop(series);
}

// Rare: the only object of a series has come again with other UIDs above it.
void IndexWriter::Drop(std::int64_t series) {
    const auto drop = [this](const char* sql, std::int64_t id) {
        Statement statement(m_database, sql);
        return statement.BindAll(id).Step() ? statement.Number(0) : 0;
    };
    const std::int64_t study = drop("DELETE FROM series WHERE id = ?1 RETURNING study", series);
    const std::int64_t patient = drop("DELETE FROM study WHERE id = ?1 AND NOT EXISTS "
                                      "(SELECT 1 FROM series WHERE study = ?1) RETURNING patient",
                                      study);
    if (drop("DELETE FROM patient WHERE id = ?1 AND NOT EXISTS (SELECT 1 FROM study WHERE patient = ?1) RETURNING id",
             patient) != 0)
        m_removeNames.BindAll(patient).Run();
    m_more.erase(series);
    Forget();
}

void IndexWriter::Put(const Record& record, const std::string& path, std::uint64_t size) {
    Begin();
    const std::int64_t patient = RowOf(Level::patient, 0, record, path).id;
    const std::int64_t study = RowOf(Level::study, patient, record, path).id;
    const Row& series = RowOf(Level::series, study, record, path);
    const Removed before = Remove(record.Get(tag::kInstance));
    PutInstance(before.id, series, record, path, size); // retrievals that are under way find it by its row
    PutClass(series.id, record.Get(tag::kClass));
    const bool isAlike = before.series == series.id && before.classUid == record.Get(tag::kClass);
    if (before.series != 0 && !isAlike)
        Refresh(before.series);
}

} // namespace archive

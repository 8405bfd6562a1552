#include "platform/registry/sqlite_connection.h"

#include <winerror.h>

#include "platform/registry/registry_store.h"

namespace platform {
namespace {

constexpr int kFormat = 1;  // in the file's user_version; 0 is a new file

// Names are kept as they were written, in UTF-8, and found by their capital form. A key's end takes
// everything below it along.
constexpr const char kSchema[] = R"sql(
    CREATE TABLE keys(
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        parent INTEGER REFERENCES keys(id) ON DELETE CASCADE,
        capitals TEXT NOT NULL,
        name TEXT NOT NULL);
    CREATE UNIQUE INDEX keys_by_name ON keys(parent, capitals);
    CREATE TABLE "values"(
        id INTEGER PRIMARY KEY,
        key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
        capitals TEXT NOT NULL,
        name TEXT NOT NULL,
        type INTEGER NOT NULL,
        bytes BLOB NOT NULL,
        UNIQUE(key, capitals));
    INSERT INTO keys(id, parent, capitals, name)
        VALUES(1, NULL, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE');
    PRAGMA user_version = 1;
)sql";

struct Statement {
    Sql id;
    const char* text;
};

constexpr auto kStatements = std::to_array<Statement>({
    {Sql::kBegin, "BEGIN"},
    {Sql::kBeginWriting, "BEGIN IMMEDIATE"},
    {Sql::kCommit, "COMMIT"},
    {Sql::kRollback, "ROLLBACK"},
    {Sql::kFindKey, "SELECT id FROM keys WHERE parent = ?1 AND capitals = ?2"},
    {Sql::kKeyExists, "SELECT 1 FROM keys WHERE id = ?1"},
    {Sql::kInsertKey, "INSERT INTO keys(parent, capitals, name) VALUES(?1, ?2, ?3)"},
    {Sql::kDeleteKey, "DELETE FROM keys WHERE id = ?1"},
    {Sql::kListKeys, "SELECT name FROM keys WHERE parent = ?1 ORDER BY capitals"},
    {Sql::kReadValue, "SELECT type, bytes FROM \"values\" WHERE key = ?1 AND capitals = ?2"},
    {Sql::kWriteValue,
     R"sql(INSERT INTO "values"(key, capitals, name, type, bytes) VALUES(?1, ?2, ?3, ?4, ?5)
        ON CONFLICT(key, capitals) DO UPDATE SET type = excluded.type, bytes = excluded.bytes)sql"},
    {Sql::kForeignVersion, "PRAGMA data_version"},
});
static_assert(kStatements.size() == static_cast<std::size_t>(Sql::kCount));

}  // namespace

DWORD ErrorFromSqlite(int result) {
    if (result == SQLITE_CONSTRAINT_FOREIGNKEY) return ERROR_KEY_DELETED;
    switch (result & 0xFF) {
        case SQLITE_OK:
        case SQLITE_ROW:
        case SQLITE_DONE:
            return ERROR_SUCCESS;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return ERROR_BUSY;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
        case SQLITE_SCHEMA:
        case SQLITE_ERROR:  // the tables are not those of a registry
            return ERROR_BADDB;
        case SQLITE_FULL:
            return ERROR_DISK_FULL;
        case SQLITE_NOMEM:
        case SQLITE_TOOBIG:
            return ERROR_NOT_ENOUGH_MEMORY;
        case SQLITE_IOERR:
            return ERROR_REGISTRY_IO_FAILED;
        default:
            return ERROR_ACCESS_DENIED;
    }
}

std::unique_ptr<Connection> Connection::Open(const std::filesystem::path& file, DWORD* error) {
    sqlite3* database = nullptr;
    // The store serialises its calls itself.
    int result =
        sqlite3_open_v2(file.c_str(), &database,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    std::unique_ptr<Connection> connection(new Connection(database));
    if (result == SQLITE_OK) result = connection->Check();
    if (result == SQLITE_OK) result = connection->SetUp();
    if (result == SQLITE_OK) result = connection->PrepareAll();
    *error = ErrorFromSqlite(result);
    return *error == ERROR_SUCCESS ? std::move(connection) : nullptr;
}

Connection::~Connection() {
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    sqlite3_close(database_);
}

sqlite3_stmt* Connection::Prepared(Sql statement) {
    return statements_[static_cast<std::size_t>(statement)];
}

// Reads only. A page that is damaged or missing is found now rather than after half of a change.
int Connection::Check() {
    sqlite3_extended_result_codes(database_, 1);
    sqlite3_busy_timeout(database_, static_cast<int>(kBusyTimeout.count()));
    std::int64_t format = 0;
    std::int64_t tables = 0;
    int result = Number("PRAGMA user_version", &format);
    if (result == SQLITE_OK) result = Number("SELECT count(*) FROM sqlite_schema", &tables);
    if (result != SQLITE_OK) return result;
    if (format == 0 && tables == 0) return SQLITE_OK;
    if (format != kFormat) return SQLITE_NOTADB;
    std::int64_t isWhole = 0;
    result = Number("SELECT quick_check = 'ok' FROM pragma_quick_check(1)", &isWhole);
    if (result != SQLITE_OK) return result;
    return isWhole != 0 ? SQLITE_OK : SQLITE_CORRUPT;
}

// Two processes may find a new file at the same time: the second one sees the first one's tables.
int Connection::SetUp() {
    int result = Execute(
        "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
        "PRAGMA foreign_keys = ON; BEGIN IMMEDIATE");
    if (result != SQLITE_OK) return result;
    std::int64_t format = 0;
    result = Number("PRAGMA user_version", &format);
    if (result == SQLITE_OK && format == 0) result = Execute(kSchema);
    if (result == SQLITE_OK) return Execute("COMMIT");
    Execute("ROLLBACK");
    return result;
}

int Connection::PrepareAll() {
    for (const Statement& statement : kStatements) {
        const int result =
            sqlite3_prepare_v3(database_, statement.text, -1, SQLITE_PREPARE_PERSISTENT,
                               &statements_[static_cast<std::size_t>(statement.id)], nullptr);
        if (result != SQLITE_OK) return result;
    }
    return SQLITE_OK;
}

int Connection::Number(const char* query, std::int64_t* number) {
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(database_, query, -1, &statement, nullptr);
    if (result == SQLITE_OK) result = sqlite3_step(statement);
    if (result == SQLITE_ROW) {
        *number = sqlite3_column_int64(statement, 0);
        result = SQLITE_OK;
    }
    sqlite3_finalize(statement);
    return result;
}

int Connection::Execute(const char* statements) {
    return sqlite3_exec(database_, statements, nullptr, nullptr, nullptr);
}

// What is bound outlives the run: SQLite need not copy it.
Run& Run::Bind(std::int64_t number) {
    sqlite3_bind_int64(statement_, ++bound_, number);
    return *this;
}

Run& Run::Bind(std::string_view text) {
    sqlite3_bind_text64(statement_, ++bound_, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    return *this;
}

Run& Run::Bind(std::span<const unsigned char> bytes) {
    // A null pointer would be stored as no value at all.
    const void* begin = bytes.empty() ? static_cast<const void*>("") : bytes.data();
    sqlite3_bind_blob64(statement_, ++bound_, begin, bytes.size(), SQLITE_STATIC);
    return *this;
}

std::string_view Run::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::span<const unsigned char> Run::Bytes(int column) const {
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement_, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

}  // namespace platform

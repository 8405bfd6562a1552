#include "platform/registry/sqlite_connection.h"

#include <sys/stat.h>
#include <winerror.h>

#include <cerrno>

#include "platform/registry/registry_store.h"

namespace platform {
namespace {

constexpr std::int64_t kFormat = 1;  // in the file's user_version; 0 is an empty file

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

// Whether the latest pages may lie in the log beside the file.
bool HasLog(const std::filesystem::path& file) {
    struct stat log {};
    return stat((file.native() + "-wal").c_str(), &log) == 0 && log.st_size > 0;
}

// A file's name as SQLite takes it with parameters behind.
std::string AsUri(const std::filesystem::path& file) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char character : file.native()) {
        if (std::string_view("%?#").find(character) == std::string_view::npos) {
            uri += character;
        } else {
            const auto code = static_cast<unsigned char>(character);
            uri += {'%', kDigits[code / 16], kDigits[code % 16]};
        }
    }
    return uri;
}

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

std::unique_ptr<Connection> Connection::OpenFile(const char* file, int flags, DWORD* error) {
    sqlite3* database = nullptr;
    // The store serialises its calls itself.
    const int result = sqlite3_open_v2(file, &database, SQLITE_OPEN_NOMUTEX | flags, nullptr);
    std::unique_ptr<Connection> connection(new Connection(database));
    *error = ErrorFromSqlite(result);
    if (result == SQLITE_CANTOPEN && sqlite3_system_errno(database) == ENOENT) {
        *error = ERROR_FILE_NOT_FOUND;
    }
    if (*error != ERROR_SUCCESS) return nullptr;
    sqlite3_extended_result_codes(database, 1);
    sqlite3_busy_timeout(database, static_cast<int>(kBusyTimeout.count()));
    return connection;
}

std::unique_ptr<Connection> Connection::Open(const std::filesystem::path& file, bool toWrite,
                                             DWORD* error) {
    const int create = toWrite ? SQLITE_OPEN_CREATE : 0;
    auto connection = OpenFile(file.c_str(), SQLITE_OPEN_READWRITE | create, error);
    bool isEmpty = false;
    if (*error == ERROR_SUCCESS) *error = connection->Check(file, &isEmpty);
    if (*error == ERROR_SUCCESS && isEmpty) {
        *error = toWrite ? connection->SetUp() : ERROR_FILE_NOT_FOUND;
    }
    if (*error == ERROR_SUCCESS && toWrite) connection->ShareWithReaders();
    if (*error == ERROR_SUCCESS) *error = connection->PrepareAll();
    return *error == ERROR_SUCCESS ? std::move(connection) : nullptr;
}

std::unique_ptr<Connection> Connection::OpenUnshared(const std::filesystem::path& file,
                                                     DWORD* error) {
    // With a log beside it the file alone is not the latest that was stored. Nobody adds to the log
    // now: a writer would have made its index beside it, which could have been shared.
    const bool hasLog = HasLog(file);
    const std::string uri = AsUri(file) + (hasLog ? "?vfs=unix-none" : "?immutable=1");
    auto connection = OpenFile(uri.c_str(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, error);
    if (*error == ERROR_SUCCESS && hasLog) *error = connection->KeepLogIndexToItself();
    bool isEmpty = false;
    if (*error == ERROR_SUCCESS) *error = connection->Check(file, &isEmpty);
    if (*error == ERROR_SUCCESS && isEmpty) *error = ERROR_FILE_NOT_FOUND;
    if (*error == ERROR_SUCCESS) *error = connection->PrepareAll();
    return *error == ERROR_SUCCESS ? std::move(connection) : nullptr;
}

std::unique_ptr<Connection> Connection::OpenEmpty(DWORD* error) {
    auto connection = OpenFile(":memory:", SQLITE_OPEN_READWRITE, error);
    if (*error == ERROR_SUCCESS) *error = connection->SetUp();
    if (*error == ERROR_SUCCESS) *error = connection->PrepareAll();
    return *error == ERROR_SUCCESS ? std::move(connection) : nullptr;
}

Connection::~Connection() {
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    sqlite3_close(database_);
}

sqlite3_stmt* Connection::Prepared(Sql statement) {
    return statements_[static_cast<std::size_t>(statement)];
}

// Under one lock, so that nobody writes in between. Reads only: neither space nor the right to
// write is needed, and another's change that is not yet stored keeps nobody out.
DWORD Connection::Check(const std::filesystem::path& file, bool* isEmpty) {
    DWORD error = ErrorFromSqlite(Execute("BEGIN"));
    if (error == ERROR_SUCCESS) error = Examine(file, isEmpty);
    Execute("ROLLBACK");
    return error;
}

// A page that is damaged or missing is found now rather than after half of a change.
DWORD Connection::Examine(const std::filesystem::path& file, bool* isEmpty) {
    std::int64_t format = 0;
    std::int64_t tables = 0;
    std::int64_t size = 0;  // bytes, from the number of pages
    int result = Number("PRAGMA user_version", &format);
    if (result == SQLITE_OK) result = Number("SELECT count(*) FROM sqlite_schema", &tables);
    if (result == SQLITE_OK) {
        result =
            Number("SELECT page_count * page_size FROM pragma_page_count, pragma_page_size", &size);
    }
    if (result != SQLITE_OK) return ErrorFromSqlite(result);
    struct stat found {};
    if (stat(file.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return ERROR_BADDB;
    // SQLite takes a file of one byte for an empty one, and what is missing of a page for zeros.
    if (found.st_size < size && !HasLog(file)) return ERROR_BADDB;
    if (size == 0 && found.st_size != 0) return ERROR_BADDB;
    *isEmpty = format == 0 && tables == 0;
    if (*isEmpty) return ERROR_SUCCESS;
    if (format != kFormat) return format > kFormat ? ERROR_UNKNOWN_REVISION : ERROR_BADDB;
    std::int64_t isWhole = 0;
    // Without the number of complaints wanted: some versions take it for a table's name.
    result = Number("SELECT quick_check = 'ok' FROM pragma_quick_check LIMIT 1", &isWhole);
    if (result != SQLITE_OK) return ErrorFromSqlite(result);
    return isWhole != 0 ? ERROR_SUCCESS : ERROR_BADDB;
}

// Several processes may find a new file at the same time: one of them makes the tables, all at
// once, the others find them made.
DWORD Connection::SetUp() {
    int result = Execute("PRAGMA synchronous = NORMAL; BEGIN IMMEDIATE");
    std::int64_t format = 0;
    if (result == SQLITE_OK) result = Number("PRAGMA user_version", &format);
    if (result == SQLITE_OK && format == 0) result = Execute(kSchema);
    if (result == SQLITE_OK) result = Execute("COMMIT");
    if (InTransaction()) Execute("ROLLBACK");
    if (result == SQLITE_OK && format > kFormat) return ERROR_UNKNOWN_REVISION;
    return ErrorFromSqlite(result);
}

// The log is then indexed in memory, and left where it is.
DWORD Connection::KeepLogIndexToItself() {
    sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    return ErrorFromSqlite(Execute("PRAGMA locking_mode = EXCLUSIVE"));
}

// With a log, readers go on while a change is stored, and a change costs little. The file is turned
// to it when nobody else has it open at that moment, else by the next one who writes.
void Connection::ShareWithReaders() {
    sqlite3_busy_timeout(database_, 0);
    Execute("PRAGMA journal_mode = WAL");
    sqlite3_busy_timeout(database_, static_cast<int>(kBusyTimeout.count()));
}

DWORD Connection::PrepareAll() {
    // These hold for the connection; they change nothing in the file.
    int result = Execute("PRAGMA foreign_keys = ON; PRAGMA synchronous = NORMAL");
    for (const Statement& statement : kStatements) {
        if (result != SQLITE_OK) break;
        result = sqlite3_prepare_v3(database_, statement.text, -1, SQLITE_PREPARE_PERSISTENT,
                                    &statements_[static_cast<std::size_t>(statement.id)], nullptr);
    }
    return ErrorFromSqlite(result);
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

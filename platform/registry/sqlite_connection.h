/// One connection to the registry's file, with its statements prepared once.
#pragma once

#include <sqlite3.h>
#include <windef.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace platform {

/// The platform's error for a result of SQLite; ERROR_SUCCESS for success, a row and the end.
[[nodiscard]] DWORD ErrorFromSqlite(int result);

enum class Sql {
    kBegin,
    kBeginWriting,
    kCommit,
    kRollback,
    kFindKey,
    kKeyExists,
    kInsertKey,
    kDeleteKey,
    kListKeys,
    kReadValue,
    kWriteValue,
    kForeignVersion,
    kCount
};

class Connection {
public:
    /// Opens the file and checks that it is whole. One that is there is only read by that; one that
    /// is missing or empty is set up when it is to be written to, and otherwise answered with
    /// ERROR_FILE_NOT_FOUND.
    /// \return null with `*error` set when it cannot be used; the file is then as it was.
    [[nodiscard]] static std::unique_ptr<Connection> Open(const std::filesystem::path& file,
                                                          bool toWrite, DWORD* error);
    /// Opens the file to read it where it cannot be shared with writers, for want of space or of
    /// the right to write beside it. For one look: a change made meanwhile is not seen.
    [[nodiscard]] static std::unique_ptr<Connection> OpenUnshared(const std::filesystem::path& file,
                                                                  DWORD* error);
    /// A registry without keys, in memory.
    [[nodiscard]] static std::unique_ptr<Connection> OpenEmpty(DWORD* error);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] sqlite3_stmt* Prepared(Sql statement);
    [[nodiscard]] std::int64_t LastInsertedId() const {
        return sqlite3_last_insert_rowid(database_);
    }
    [[nodiscard]] int ChangedRows() const { return sqlite3_changes(database_); }
    [[nodiscard]] bool InTransaction() const { return sqlite3_get_autocommit(database_) == 0; }

private:
    explicit Connection(sqlite3* database) : database_(database) {}
    static std::unique_ptr<Connection> OpenFile(const char* file, int flags, DWORD* error);
    DWORD KeepLogIndexToItself();
    void ShareWithReaders();
    DWORD Check(const std::filesystem::path& file, bool* isEmpty);
    DWORD Examine(const std::filesystem::path& file, bool* isEmpty);
    DWORD SetUp();
    DWORD PrepareAll();
    int Number(const char* query, std::int64_t* number);
    int Execute(const char* statements);

    sqlite3* database_;
    std::array<sqlite3_stmt*, static_cast<std::size_t>(Sql::kCount)> statements_{};
};

/// One run of a prepared statement; afterwards it is ready for the next.
class Run {
public:
    Run(Connection& connection, Sql statement) : statement_(connection.Prepared(statement)) {}
    ~Run() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    Run& Bind(std::int64_t number);
    Run& Bind(std::string_view text);
    Run& Bind(std::span<const unsigned char> bytes);

    /// SQLITE_ROW, SQLITE_DONE or an error.
    int Step() { return sqlite3_step(statement_); }
    /// The error of a statement that answers no rows.
    [[nodiscard]] DWORD Finish() { return ErrorFromSqlite(Step()); }

    [[nodiscard]] std::int64_t Number(int column) const {
        return sqlite3_column_int64(statement_, column);
    }
    [[nodiscard]] std::string_view Text(int column) const;
    [[nodiscard]] std::span<const unsigned char> Bytes(int column) const;

private:
    sqlite3_stmt* statement_;
    int bound_ = 0;
};

/// A transaction; taken back unless it was committed. Within another it is a part of that, and
/// neither stored nor taken back by itself.
class Transaction {
public:
    /// \param begin  `Sql::kBegin` to read, `Sql::kBeginWriting` to write.
    Transaction(Connection& connection, Sql begin)
        : connection_(connection), ended_(connection.InTransaction()) {
        if (!ended_) error_ = Run(connection, begin).Finish();
    }
    ~Transaction() {
        if (error_ == 0 && !ended_) Run(connection_, Sql::kRollback).Step();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Why it could not begin; ERROR_SUCCESS when it did.
    [[nodiscard]] DWORD Error() const { return error_; }
    [[nodiscard]] DWORD Commit() {
        if (ended_) return 0;
        const DWORD error = Run(connection_, Sql::kCommit).Finish();
        ended_ = error == 0;
        return error;
    }

private:
    Connection& connection_;
    bool ended_;
    DWORD error_ = 0;
};

}  // namespace platform

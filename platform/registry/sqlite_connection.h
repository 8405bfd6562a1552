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
    /// Opens the file, made when missing, and checks that it is whole before anything is written.
    /// \return null with `*error` set when it cannot be used; the file is then as it was.
    [[nodiscard]] static std::unique_ptr<Connection> Open(const std::filesystem::path& file,
                                                          DWORD* error);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] sqlite3_stmt* Prepared(Sql statement);
    [[nodiscard]] std::int64_t LastInsertedId() const {
        return sqlite3_last_insert_rowid(database_);
    }
    [[nodiscard]] int ChangedRows() const { return sqlite3_changes(database_); }

private:
    explicit Connection(sqlite3* database) : database_(database) {}
    int Check();
    int SetUp();
    int PrepareAll();
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

/// A transaction; taken back unless it was committed.
class Transaction {
public:
    /// \param begin  `Sql::kBegin` to read, `Sql::kBeginWriting` to write.
    Transaction(Connection& connection, Sql begin)
        : connection_(connection), error_(Run(connection, begin).Finish()) {}
    ~Transaction() {
        if (error_ == 0 && !ended_) Run(connection_, Sql::kRollback).Step();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Why it could not begin; ERROR_SUCCESS when it did.
    [[nodiscard]] DWORD Error() const { return error_; }
    [[nodiscard]] DWORD Commit() {
        const DWORD error = Run(connection_, Sql::kCommit).Finish();
        ended_ = error == 0;
        return error;
    }

private:
    Connection& connection_;
    DWORD error_;
    bool ended_ = false;
};

}  // namespace platform

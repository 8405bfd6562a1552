#include "platform/registry/registry_store.h"

#include <winerror.h>

#include <memory>
#include <mutex>

#include "platform/base/machine.h"
#include "platform/registry/sqlite_connection.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_encoding.h"

namespace platform {
namespace {

std::recursive_mutex mutex;  // over all that follows; operations may be parts of a larger one
std::unique_ptr<Connection> current;
Connection* passing = nullptr;  // used instead of `current` by one operation and its parts
std::uint64_t generation = 1;   // steps with every change of keys by this process

// The connection for one operation, held to its end.
class Store {
public:
    enum Purpose { kToRead, kToWrite };

    explicit Store(Purpose purpose) : lock_(mutex) {
        if (current || passing != nullptr) return;
        if (MachineFolder().empty()) {
            error_ = ERROR_PATH_NOT_FOUND;
            return;
        }
        WhenMachineChanges(CloseRegistryStore);
        const std::filesystem::path file = MachineFolder() / "registry.sqlite";
        current = Connection::Open(file, purpose == kToWrite, &error_);
        ++generation;
        if (!current && purpose == kToRead) OpenToLook(file);
    }
    ~Store() {
        if (look_) passing = nullptr;
    }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    [[nodiscard]] DWORD Error() const { return error_; }
    Connection& operator*() const { return passing != nullptr ? *passing : *current; }

private:
    // Not kept: the next operation may find the file made, or space to share it.
    void OpenToLook(const std::filesystem::path& file) {
        if (error_ == ERROR_ACCESS_DENIED || error_ == ERROR_REGISTRY_IO_FAILED ||
            error_ == ERROR_DISK_FULL) {
            look_ = Connection::OpenUnshared(file, &error_);
        }
        if (error_ == ERROR_FILE_NOT_FOUND) look_ = Connection::OpenEmpty(&error_);
        passing = look_.get();
    }

    std::lock_guard<std::recursive_mutex> lock_;
    std::unique_ptr<Connection> look_;
    DWORD error_ = ERROR_SUCCESS;
};

std::string Capitals(std::u16string_view name) {
    return ExactUtf8(Uppercase(name));
}

// The next name of a path; empty at its end.
std::u16string_view TakeName(std::u16string_view& path) {
    while (!path.empty() && path.front() == u'\\') path.remove_prefix(1);
    const std::u16string_view name = path.substr(0, path.find(u'\\'));
    path.remove_prefix(name.size());
    return name;
}

DWORD KeyExists(Connection& connection, KeyId key) {
    Run run(connection, Sql::kKeyExists);
    const int result = run.Bind(key).Step();
    return result == SQLITE_DONE ? ERROR_KEY_DELETED : ErrorFromSqlite(result);
}

DWORD FindSubkey(Connection& connection, KeyId parent, std::u16string_view name, KeyId* key) {
    const std::string capitals = Capitals(name);
    Run run(connection, Sql::kFindKey);
    const int result = run.Bind(parent).Bind(capitals).Step();
    if (result == SQLITE_ROW) *key = run.Number(0);
    return result == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : ErrorFromSqlite(result);
}

DWORD InsertSubkey(Connection& connection, KeyId parent, std::u16string_view name, KeyId* key) {
    const std::string capitals = Capitals(name);
    const std::string spelled = ExactUtf8(name);
    Run run(connection, Sql::kInsertKey);
    const DWORD error = run.Bind(parent).Bind(capitals).Bind(spelled).Finish();
    *key = connection.LastInsertedId();
    return error;
}

DWORD WalkTo(Connection& connection, KeyId parent, std::u16string_view path, KeyId* key) {
    *key = parent;
    DWORD error = KeyExists(connection, parent);
    for (auto name = TakeName(path); error == ERROR_SUCCESS && !name.empty();
         name = TakeName(path)) {
        error = FindSubkey(connection, *key, name, key);
    }
    return error;
}

DWORD WalkOrCreate(Connection& connection, KeyId parent, std::u16string_view path, KeyId* key) {
    *key = parent;
    DWORD error = KeyExists(connection, parent);
    for (auto name = TakeName(path); error == ERROR_SUCCESS && !name.empty();
         name = TakeName(path)) {
        const KeyId above = *key;
        error = FindSubkey(connection, above, name, key);
        if (error == ERROR_FILE_NOT_FOUND) error = InsertSubkey(connection, above, name, key);
    }
    return error;
}

DWORD ReadForeignVersion(Connection& connection, std::int64_t* version) {
    Run run(connection, Sql::kForeignVersion);
    const int result = run.Step();
    if (result == SQLITE_ROW) *version = run.Number(0);
    return ErrorFromSqlite(result);
}

DWORD ListSubkeys(Connection& connection, KeyId key, std::vector<std::u16string>* names) {
    DWORD error = KeyExists(connection, key);
    if (error != ERROR_SUCCESS) return error;
    Run run(connection, Sql::kListKeys);
    run.Bind(key);
    int result = run.Step();
    for (; result == SQLITE_ROW; result = run.Step()) names->push_back(ExactUtf16(run.Text(0)));
    return ErrorFromSqlite(result);
}

}  // namespace

DWORD FindKey(KeyId parent, std::u16string_view path, KeyId* key) {
    const Store store(Store::kToRead);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    // One view of the file for all names of the path.
    const Transaction reading(*store, Sql::kBegin);
    return reading.Error() != ERROR_SUCCESS ? reading.Error() : WalkTo(*store, parent, path, key);
}

DWORD FindOrCreateKey(KeyId parent, std::u16string_view path, KeyId* key, bool* created) {
    *created = false;
    const DWORD found = FindKey(parent, path, key);
    if (found != ERROR_FILE_NOT_FOUND) return found;
    const Store store(Store::kToWrite);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    Transaction writing(*store, Sql::kBeginWriting);
    if (writing.Error() != ERROR_SUCCESS) return writing.Error();
    // Another process may have been quicker.
    if (WalkTo(*store, parent, path, key) == ERROR_SUCCESS) return ERROR_SUCCESS;
    DWORD error = WalkOrCreate(*store, parent, path, key);
    if (error == ERROR_SUCCESS) error = writing.Commit();
    ++generation;
    *created = error == ERROR_SUCCESS;
    return error;
}

DWORD DeleteKey(KeyId key) {
    const Store store(Store::kToWrite);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    ++generation;
    const DWORD error = Run(*store, Sql::kDeleteKey).Bind(key).Finish();
    if (error != ERROR_SUCCESS) return error;
    return (*store).ChangedRows() > 0 ? ERROR_SUCCESS : ERROR_KEY_DELETED;
}

DWORD RefreshSubkeys(KeyId key, bool walkingOn, SubkeyList* list) {
    const Store store(Store::kToRead);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    if (walkingOn && list->generation == generation) return ERROR_SUCCESS;
    const Transaction reading(*store, Sql::kBegin);
    if (reading.Error() != ERROR_SUCCESS) return reading.Error();
    std::int64_t foreignVersion = 0;
    DWORD error = ReadForeignVersion(*store, &foreignVersion);
    if (error != ERROR_SUCCESS) return error;
    if (list->generation == generation && list->foreignVersion == foreignVersion) {
        return ERROR_SUCCESS;
    }
    SubkeyList fresh{generation, foreignVersion, {}};
    error = ListSubkeys(*store, key, &fresh.names);
    if (error == ERROR_SUCCESS) *list = std::move(fresh);
    return error;
}

DWORD ReadValue(KeyId key, std::u16string_view name, RegistryValue* value) {
    const Store store(Store::kToRead);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    const std::string capitals = Capitals(name);
    Run run(*store, Sql::kReadValue);
    const int result = run.Bind(key).Bind(capitals).Step();
    if (result == SQLITE_DONE) {
        const DWORD error = KeyExists(*store, key);
        return error == ERROR_SUCCESS ? ERROR_FILE_NOT_FOUND : error;
    }
    if (result != SQLITE_ROW) return ErrorFromSqlite(result);
    value->type = static_cast<DWORD>(run.Number(0));
    const std::span<const unsigned char> bytes = run.Bytes(1);
    value->bytes.assign(bytes.begin(), bytes.end());
    return ERROR_SUCCESS;
}

DWORD WriteValue(KeyId key, std::u16string_view name, DWORD type,
                 std::span<const unsigned char> bytes) {
    const Store store(Store::kToWrite);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    const std::string capitals = Capitals(name);
    const std::string spelled = ExactUtf8(name);
    Run run(*store, Sql::kWriteValue);
    return run.Bind(key).Bind(capitals).Bind(spelled).Bind(std::int64_t{type}).Bind(bytes).Finish();
}

DWORD ChangeAtOnce(const std::function<DWORD()>& operations) {
    const Store store(Store::kToWrite);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    Transaction writing(*store, Sql::kBeginWriting);
    if (writing.Error() != ERROR_SUCCESS) return writing.Error();
    DWORD error = operations();
    if (error == ERROR_SUCCESS) error = writing.Commit();
    ++generation;
    return error;
}

DWORD ReadAtOnce(const std::function<DWORD()>& operations) {
    const Store store(Store::kToRead);
    if (store.Error() != ERROR_SUCCESS) return store.Error();
    const Transaction reading(*store, Sql::kBegin);
    return reading.Error() != ERROR_SUCCESS ? reading.Error() : operations();
}

void CloseRegistryStore() {
    const std::lock_guard lock(mutex);
    current.reset();
    ++generation;
}

}  // namespace platform

#include <windows.h>

#include <vector>

#include "platform/faults/failure_points.h"
#include "tests/support/machine_fixture.h"

namespace {

class RegistryTest : public tests::MachineTest {
protected:
    static HKEY Create(LPCWSTR path, HKEY parent = HKEY_LOCAL_MACHINE,
                       REGSAM access = KEY_ALL_ACCESS) {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(parent, path, 0, nullptr, 0, access, nullptr, &key, nullptr), 0);
        return key;
    }
    static std::vector<std::u16string> Subkeys(HKEY key) {
        std::vector<std::u16string> names;
        WCHAR name[256];
        DWORD size = 256;
        for (DWORD i = 0; RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) ==
                          ERROR_SUCCESS;
             ++i, size = 256) {
            EXPECT_EQ(names.emplace_back(name).size(), size);
        }
        return names;
    }
    static LSTATUS Set(HKEY key, LPCWSTR name, DWORD type, std::string_view bytes) {
        return RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                              static_cast<DWORD>(bytes.size()));
    }
};

TEST_F(RegistryTest, KeysAreFoundInAnyCaseAndKeepTheirSpelling) {
    HKEY key = nullptr;
    for (const auto& [path, expected] :
         {std::pair<LPCWSTR, int>(u"Software\\Regal\\\u00C4rger", REG_CREATED_NEW_KEY),
          std::pair<LPCWSTR, int>(u"SOFTWARE\\regal\\\u00E4RGER\\", REG_OPENED_EXISTING_KEY)}) {
        DWORD disposition = 0;
        ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                  &key, &disposition),
                  0);
        EXPECT_EQ(disposition, static_cast<DWORD>(expected));
        RegCloseKey(key);
    }
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"software\\REGAL", 0, KEY_READ, &key), 0);
    EXPECT_EQ(Subkeys(key), std::vector<std::u16string>{u"\u00C4rger"});
    EXPECT_EQ(Subkeys(HKEY_LOCAL_MACHINE), std::vector<std::u16string>{u"Software"});
    EXPECT_EQ(RegCloseKey(key), 0);
}

TEST_F(RegistryTest, WrongPathsAndHandles) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, u"Missing\\Key", &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, u"\\Missing", &key), ERROR_BAD_PATHNAME);
    EXPECT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, u"Software", &key), ERROR_INVALID_HANDLE);
    const std::u16string longest(255, u'n');
    const HKEY made = Create(longest.c_str());
    EXPECT_EQ(RegOpenKeyW(made, (longest + u"n").c_str(), &key), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegOpenKeyW(made, nullptr, &key), 0);
    EXPECT_EQ(key, made) << "without a path the same handle";
    EXPECT_EQ(RegCloseKey(made), 0);
    EXPECT_EQ(RegCloseKey(made), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Set(made, u"x", REG_SZ, ""), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), 0);
    RegCloseKey(Create(longest.c_str()));
}

TEST_F(RegistryTest, RightsGoWithTheHandle) {
    const HKEY all = Create(u"Key");
    Set(all, u"v", REG_BINARY, "1");
    const HKEY reading = Create(u"Key", HKEY_LOCAL_MACHINE, KEY_READ);
    const HKEY setting = Create(u"Key", HKEY_LOCAL_MACHINE, KEY_SET_VALUE);
    HKEY key = nullptr;
    EXPECT_EQ(Set(reading, u"v", REG_BINARY, "2"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteTreeW(reading, u"x"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCreateKeyExW(reading, u"New", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegQueryValueExW(reading, u"v", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(RegQueryValueExW(setting, u"v", nullptr, nullptr, nullptr, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(setting, u"V", REG_BINARY, "2"), 0);
    for (const HKEY open : {all, reading, setting}) RegCloseKey(open);
}

TEST_F(RegistryTest, ValuesComeBackAsStoredInEveryBufferSize) {
    const HKEY key = Create(u"Values");
    const std::string stored("a\0b\0c", 5);  // an odd size and no terminator
    for (const int kind : {REG_SZ, REG_BINARY, REG_MULTI_SZ, REG_DWORD}) {
        const auto type = static_cast<DWORD>(kind);
        ASSERT_EQ(Set(key, u"Value", type, stored), 0);
        for (DWORD room = 0; room <= 9; ++room) {
            BYTE bytes[10];
            std::fill(std::begin(bytes), std::end(bytes), BYTE{0xEE});
            DWORD size = room;
            DWORD found = 0;
            const LSTATUS error = RegQueryValueExW(key, u"VALUE", nullptr, &found, bytes, &size);
            EXPECT_EQ(error, room < 5 ? ERROR_MORE_DATA : ERROR_SUCCESS);
            EXPECT_EQ(size, 5u);
            EXPECT_EQ(found, type);
            EXPECT_EQ(bytes[room], 0xEE) << "behind the room";
            if (error == ERROR_SUCCESS) {
                EXPECT_EQ(std::string(bytes, bytes + 5), stored);
            }
        }
    }
    EXPECT_EQ(Set(key, nullptr, REG_SZ, ""), 0);
    for (const auto& [name, length] :
         {std::pair<LPCWSTR, DWORD>(u"Value", 5u), std::pair<LPCWSTR, DWORD>(u"", 0u)}) {
        DWORD size = 1;
        EXPECT_EQ(RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size), 0);
        EXPECT_EQ(size, length);
    }
    RegCloseKey(key);
}

TEST_F(RegistryTest, SubkeysInOrderAndAfterEveryChange) {
    const HKEY key = Create(u"Ports");
    for (LPCWSTR name : {u"b", u"A_1", u"C", u"a1", u"B\u00E9"}) RegCloseKey(Create(name, key));
    std::vector<std::u16string> expected = {u"a1", u"A_1", u"b", u"B\u00E9", u"C"};
    EXPECT_EQ(Subkeys(key), expected);
    const WCHAR lone[] = {0xD800, 0};
    RegCloseKey(Create(lone, key));
    expected.emplace_back(lone);
    EXPECT_EQ(Subkeys(key), expected) << "names need not be whole characters";
    EXPECT_EQ(RegDeleteTreeW(key, u"B"), 0);
    expected.erase(expected.begin() + 2);
    EXPECT_EQ(Subkeys(key), expected);
    WCHAR name[3];
    DWORD size = 2;
    EXPECT_EQ(RegEnumKeyExW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
    size = 3;
    EXPECT_EQ(RegEnumKeyExW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr), 0);
    RegCloseKey(key);
}

TEST_F(RegistryTest, ATreeGoesAtOnceAndItsHandlesAreDead) {
    const HKEY top = Create(u"Top");
    const HKEY deep = Create(u"Middle\\Deep", top);
    Set(deep, u"v", REG_SZ, "x");
    EXPECT_EQ(RegDeleteTreeW(HKEY_LOCAL_MACHINE, u"top\\middle"), 0);
    EXPECT_EQ(Set(deep, u"v", REG_SZ, "x"), ERROR_KEY_DELETED);
    EXPECT_EQ(RegQueryValueExW(deep, u"v", nullptr, nullptr, nullptr, nullptr), ERROR_KEY_DELETED);
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyW(deep, u"x", &key), ERROR_KEY_DELETED);
    RegCloseKey(Create(u"Middle\\Deep", top));
    EXPECT_EQ(Set(deep, u"v", REG_SZ, "x"), ERROR_KEY_DELETED) << "a new key of the same name";
    EXPECT_EQ(RegDeleteTreeW(top, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Subkeys(top), std::vector<std::u16string>{u"Middle"});
    EXPECT_EQ(RegDeleteTreeW(HKEY_LOCAL_MACHINE, u"nothing"), ERROR_FILE_NOT_FOUND);
    RegCloseKey(deep);
    RegCloseKey(top);
}

TEST_F(RegistryTest, EveryPointCanFailAndChangesNothing) {
    const auto scenario = [](HKEY key) {
        const LSTATUS set = Set(key, u"v", REG_SZ, "new");
        HKEY child = nullptr;
        const LSTATUS made =
            RegCreateKeyExW(key, u"Child", 0, nullptr, 0, KEY_READ, nullptr, &child, nullptr);
        if (made == ERROR_SUCCESS) RegCloseKey(child);
        return std::vector<LSTATUS>{set, made, RegDeleteTreeW(key, u"Child")};
    };
    const HKEY key = Create(u"Key");
    for (int call = 1; call <= 3; ++call) {
        const platform::FailurePlan plan(call, ERROR_GEN_FAILURE);
        const std::vector<LSTATUS> results = scenario(key);
        EXPECT_TRUE(plan.Fired());
        EXPECT_EQ(results[static_cast<std::size_t>(call) - 1], ERROR_GEN_FAILURE);
    }
    EXPECT_EQ(scenario(key), (std::vector<LSTATUS>{0, 0, 0}));
    RegCloseKey(key);
}

}  // namespace

#include <array>
#include <thread>

#include "common/model_identity.h"
#include "common/oem_driver_interface.h"
#include "tests/support/plugin_fixture.h"

namespace {

/// The driver's object, as far as the plug-in asks it.
class FakeDriver final : public IUnknown {
public:
    explicit FakeDriver(HRESULT answer) : answer_(answer) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        EXPECT_EQ(iid, IID_IPrintOemDriverUI);
        ++asked;
        if (answer_ == S_OK) ++references;
        *object = answer_ == S_OK ? this : nullptr;
        return answer_;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    int asked = 0;
    ULONG references = 1;

private:
    HRESULT answer_;
};

class PluginObject : public tests::PluginTest {
protected:
    static IClassFactory* Factory() {
        void* factory = nullptr;
        EXPECT_EQ(DllGetClassObject(CLSID_OEMUI, IID_IClassFactory, &factory), S_OK);
        return static_cast<IClassFactory*>(factory);
    }

    void SetUp() override {
        IClassFactory* factory = Factory();
        void* object = nullptr;
        ASSERT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemUI, &object), S_OK);
        factory->Release();
        plugin_ = static_cast<IPrintOemUI*>(object);
    }
    void TearDown() override {
        EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
        EXPECT_EQ(plugin_->Release(), 0U);
        EXPECT_EQ(DllCanUnloadNow(), S_OK);
    }

    static void ExpectFailure(HRESULT result, DWORD error) {
        EXPECT_EQ(result, E_FAIL);
        EXPECT_EQ(::GetLastError(), error);
        ::SetLastError(0);
    }

    IPrintOemUI* plugin_ = nullptr;
};

TEST_F(PluginObject, ModuleServesOneClassThroughItsFactory) {
    int untouched = 0;
    void* object = &untouched;
    EXPECT_EQ(DllGetClassObject(IID_IPrintOemUI, IID_IUnknown, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, &untouched);
    EXPECT_EQ(DllGetClassObject(CLSID_OEMUI, IID_IPrintOemUI, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);

    IClassFactory* factory = Factory();
    EXPECT_EQ(factory->CreateInstance(plugin_, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    object = &untouched;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);

    plugin_->Release();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    EXPECT_EQ(factory->Release(), 0U);
    SetUp();
}

TEST_F(PluginObject, GetInfoChecksInOrder) {
    UINT32 value = 0;
    DWORD needed = 9;
    ExpectFailure(plugin_->GetInfo(OEMGI_GETSIGNATURE, &value, 4, nullptr),
                  ERROR_INVALID_PARAMETER);
    struct Row {
        DWORD mode;
        UINT32* buffer;
        DWORD size;
        DWORD error;
        DWORD needed;
    };
    const Row rows[] = {{OEMGI_GETINTERFACEVERSION, &value, 4, ERROR_INVALID_PARAMETER, 9},
                        {OEMGI_GETSIGNATURE, &value, 3, ERROR_INSUFFICIENT_BUFFER, 4},
                        {OEMGI_GETPUBLISHERINFO, nullptr, 4, ERROR_INSUFFICIENT_BUFFER, 4},
                        {OEMGI_GETPUBLISHERINFO, &value, 4, ERROR_NOT_SUPPORTED, 0}};
    for (const Row& row : rows) {
        ExpectFailure(plugin_->GetInfo(row.mode, row.buffer, row.size, &needed), row.error);
        EXPECT_EQ(needed, row.needed) << row.mode;
    }
    EXPECT_EQ(plugin_->GetInfo(OEMGI_GETSIGNATURE, &value, 4, &needed), S_OK);
    EXPECT_EQ(value, oemui::Model().Signature);
    EXPECT_EQ(needed, 4U);
    EXPECT_EQ(plugin_->GetInfo(OEMGI_GETVERSION, &value, 4, &needed), S_OK);
    EXPECT_EQ(value, 1U);
}

TEST_F(PluginObject, DriverInterfaceIsAskedForUntilItIsHeldAndGivenBack) {
    FakeDriver refusing(E_NOINTERFACE);
    EXPECT_EQ(plugin_->PublishDriverInterface(&refusing), E_FAIL);
    FakeDriver driver(S_OK);
    EXPECT_EQ(plugin_->PublishDriverInterface(&driver), S_OK);
    EXPECT_EQ(plugin_->PublishDriverInterface(&driver), S_OK);
    EXPECT_EQ(driver.asked, 1);
    EXPECT_EQ(driver.references, 2U);
    plugin_->Release();
    EXPECT_EQ(driver.references, 1U);
    SetUp();
}

TEST_F(PluginObject, PropertySheetEntriesAnswerByReason) {
    PROPSHEETUI_INFO_HEADER header = {};
    SETRESULT_INFO result = {};
    result.Result = 77;
    struct Answer {
        WORD reason;
        void* parameter;
        ULONG_PTR result;
    };
    const Answer answers[] = {
        {PROPSHEETUI_REASON_INIT, nullptr, 1},     {PROPSHEETUI_REASON_GET_INFO_HEADER, &header, 1},
        {PROPSHEETUI_REASON_DESTROY, nullptr, 1},  {PROPSHEETUI_REASON_SET_RESULT, &result, 77},
        {PROPSHEETUI_REASON_GET_ICON, nullptr, 0}, {5, nullptr, 9}};
    for (const Answer& answer : answers) {
        for (const auto entry :
             {&IPrintOemUI::DocumentPropertySheets, &IPrintOemUI::DevicePropertySheets}) {
            PROPSHEETUI_INFO sheet = {};
            sheet.Version = PROPSHEETUI_INFO_VERSION;
            sheet.Reason = answer.reason;
            sheet.Result = 9;
            EXPECT_EQ((plugin_->*entry)(&sheet, reinterpret_cast<LPARAM>(answer.parameter)), S_OK);
            EXPECT_EQ(sheet.Result, answer.result) << answer.reason;
        }
    }
    EXPECT_EQ(tests::Narrow(header.pTitle), "OEM UI Page");
    PROPSHEETUI_INFO newer = {};
    newer.Version = 0x0101;
    ExpectFailure(plugin_->DocumentPropertySheets(&newer, 0), ERROR_INVALID_PARAMETER);
    ExpectFailure(plugin_->DevicePropertySheets(nullptr, 0), ERROR_INVALID_PARAMETER);
    OEMCUIPPARAM params = {};
    ExpectFailure(plugin_->CommonUIProp(3, &params), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(plugin_->PrinterEvent(nullptr, 99, 0, 0), E_NOTIMPL);
    EXPECT_EQ(plugin_->DriverEvent(99, 0, nullptr, 0), E_NOTIMPL);
}

TEST_F(PluginObject, CountsHoldWhenThreadsCreateAndRelease) {
    std::array<std::thread, 4> threads;
    for (std::thread& thread : threads) {
        thread = std::thread([this] {
            for (int round = 0; round < 2000; ++round) {
                plugin_->AddRef();
                IClassFactory* factory = Factory();
                void* object = nullptr;
                factory->LockServer(TRUE);
                factory->CreateInstance(nullptr, IID_IUnknown, &object);
                static_cast<IUnknown*>(object)->Release();
                factory->LockServer(FALSE);
                factory->Release();
                plugin_->Release();
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(plugin_->AddRef(), 2U);
    EXPECT_EQ(plugin_->Release(), 1U);
}

}  // namespace

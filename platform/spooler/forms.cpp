#include "platform/spooler/forms.h"

#include <winreg.h>
#include <winspool.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/spooler/print_keys.h"
#include "platform/spooler/printer_handles.h"
#include "platform/spooler/record_buffer.h"
#include "platform/text/letter_case.h"

namespace platform::spooler {
namespace {

struct BuiltInForm {
    WORD number;
    const char16_t* name;
    LONG width;   // thousandths of a millimetre
    LONG length;  // thousandths of a millimetre
};

constexpr auto kBuiltInForms = std::to_array<BuiltInForm>({
    {DMPAPER_LETTER, u"Letter", 215900, 279400},
    {DMPAPER_LEGAL, u"Legal", 215900, 355600},
    {DMPAPER_STATEMENT, u"Statement", 139700, 215900},
    {DMPAPER_EXECUTIVE, u"Executive", 184150, 266700},
    {DMPAPER_A3, u"A3", 297000, 420000},
    {DMPAPER_A4, u"A4", 210000, 297000},
    {DMPAPER_A5, u"A5", 148000, 210000},
    {DMPAPER_A6, u"A6", 105000, 148000},
    {DMPAPER_B5, u"B5 (JIS)", 182000, 257000},
    {DMPAPER_ENV_B5, u"B5 (ISO)", 176000, 250000},
    {DMPAPER_FOLIO, u"Folio", 215900, 330200},
    {DMPAPER_ENV_10, u"Envelope #10", 104775, 241300},
    {DMPAPER_ENV_DL, u"Envelope DL", 110000, 220000},
    {DMPAPER_ENV_C5, u"Envelope C5", 162000, 229000},
    {DMPAPER_ENV_C6, u"Envelope C6", 114000, 162000},
    {DMPAPER_ENV_MONARCH, u"Envelope Monarch", 98425, 190500},
    {DMPAPER_JENV_CHOU3, u"Envelope Chou #3", 120000, 235000},
    {DMPAPER_JENV_CHOU4, u"Envelope Chou #4", 90000, 205000},
    {DMPAPER_JENV_YOU4, u"Envelope You #4", 105000, 235000},
    {DMPAPER_JAPANESE_POSTCARD, u"J-Postcard", 100000, 148000},
    {DMPAPER_DBL_JAPANESE_POSTCARD, u"Double Postcard", 200000, 148000},
    {DMPAPER_P16K, u"Kai 16", 185000, 260000},
    {DMPAPER_P32K, u"Kai 32", 130000, 184000},
    {DMPAPER_USER + 1, u"16K", 195000, 270000},
    {DMPAPER_USER + 2, u"UK Quarto", 203200, 254000},
    {DMPAPER_USER + 3, u"Foolscap", 203200, 330200},
    {DMPAPER_USER + 4, u"Government Legal", 215900, 330200},
    {DMPAPER_USER + 5, u"Government Letter", 203200, 266700},
    {DMPAPER_LETTER_PLUS, u"Letter Plus", 215900, 322300},
    {DMPAPER_USER + 6, u"Photo 4x6", 101600, 152400},
    {DMPAPER_USER + 7, u"Photo 10x15", 100000, 150000},
});

// Numbers of the user's forms: from here up to the largest that a devmode can hold.
constexpr DWORD kFirstUserNumber = DMPAPER_USER + 256;
constexpr DWORD kLastUserNumber = 0x7FFF;
constexpr std::size_t kFormNameLimit = CCHFORMNAME - 1;
constexpr LPCWSTR kFormValue = u"Form";

// A user's form as it is stored, below a key of its name.
struct StoredForm {
    SIZEL size;
    RECTL area;
    DWORD number;
    DWORD flags;  // FORM_*
};
static_assert(sizeof(StoredForm) == 32 && offsetof(StoredForm, number) == 24);

bool IsFormSize(const SIZEL& size) {
    return size.cx > 0 && size.cy > 0;
}

bool ParseStoredForm(const std::vector<BYTE>& bytes, StoredForm* form) {
    if (bytes.size() != sizeof *form) return false;
    std::memcpy(form, bytes.data(), sizeof *form);
    return IsFormSize(form->size) && form->number >= kFirstUserNumber &&
           form->number <= kLastUserNumber;
}

DWORD ListUserForms(std::vector<Form>* forms) {
    std::vector<std::u16string> names;
    if (const DWORD error = ListSubKeys(kFormsPath, &names)) return error;
    for (std::u16string& name : names) {
        PrintKey key;
        const DWORD error = key.Open(SubKeyPath(kFormsPath, name));
        if (error == ERROR_FILE_NOT_FOUND) continue;  // a name that is damaged
        if (error != ERROR_SUCCESS) return error;
        StoredForm stored = {};
        if (name.size() <= kFormNameLimit && ParseStoredForm(key.Bytes(kFormValue), &stored)) {
            forms->push_back({static_cast<WORD>(stored.number), std::move(name), stored.size,
                              stored.area, false});
        }
        if (key.Error() != ERROR_SUCCESS) return key.Error();
    }
    std::ranges::stable_sort(*forms, {}, &Form::number);
    return ERROR_SUCCESS;
}

DWORD CheckNewForm(const FORM_INFO_1W& info) {
    if (info.pName == nullptr || !IsKeyName(info.pName) ||
        std::u16string_view(info.pName).size() > kFormNameLimit) {
        return ERROR_INVALID_FORM_NAME;
    }
    return IsFormSize(info.Size) ? ERROR_SUCCESS : ERROR_INVALID_FORM_SIZE;
}

DWORD AddUserForm(const FORM_INFO_1W& info) {
    if (const DWORD error = CheckNewForm(info)) return error;
    std::vector<Form> forms;
    if (const DWORD error = ListForms(&forms)) return error;
    if (FindForm(forms, info.pName) != nullptr) return ERROR_FILE_EXISTS;
    const DWORD number = forms.back().builtIn ? kFirstUserNumber : forms.back().number + 1u;
    if (number > kLastUserNumber) return ERROR_NOT_SUPPORTED;
    const StoredForm stored = {info.Size, info.ImageableArea, number, info.Flags};
    const auto* bytes = reinterpret_cast<const BYTE*>(&stored);
    PrintKey key;
    const DWORD error = key.Create(SubKeyPath(kFormsPath, info.pName));
    return error != ERROR_SUCCESS ? error
                                  : key.Write(kFormValue, REG_BINARY, {bytes, sizeof stored});
}

DWORD Add(HANDLE handle, DWORD level, const FORM_INFO_1W* info) {
    if (level != 1) return ERROR_INVALID_LEVEL;
    if (info == nullptr) return ERROR_INVALID_PARAMETER;
    OpenPrinter opened;
    const DWORD error = FindHandle(handle, PRINTER_ACCESS_ADMINISTER, &opened);
    if (error != ERROR_SUCCESS) return error;
    // As one change: no two forms get one number.
    return ChangeAtOnce([info] { return AddUserForm(*info); });
}

DWORD RemoveUserForm(std::u16string_view name) {
    std::vector<Form> forms;
    if (const DWORD error = ListForms(&forms)) return error;
    const Form* form = FindForm(forms, name);
    if (form == nullptr) return ERROR_INVALID_FORM_NAME;
    return form->builtIn ? ERROR_INVALID_PARAMETER : RemoveKey(SubKeyPath(kFormsPath, form->name));
}

DWORD Delete(HANDLE handle, LPCWSTR name) {
    if (name == nullptr) return ERROR_INVALID_FORM_NAME;
    OpenPrinter opened;
    const DWORD error = FindHandle(handle, PRINTER_ACCESS_ADMINISTER, &opened);
    if (error != ERROR_SUCCESS) return error;
    return ChangeAtOnce([name] { return RemoveUserForm(name); });
}

FORM_INFO_1W PackForm(const Form& form, RecordTail& tail) {
    const DWORD flags = form.builtIn ? FORM_BUILTIN : FORM_USER;
    return {flags, tail.AddText(form.name), form.size, form.area};
}

DWORD Enumerate(HANDLE handle, DWORD level, const CallerBuffer& buffer, LPDWORD returned) {
    if (const DWORD error = CheckBuffer(level, 1, buffer)) return error;
    if (returned == nullptr) return ERROR_INVALID_PARAMETER;
    *returned = 0;
    OpenPrinter opened;
    if (const DWORD error = FindHandle(handle, 0, &opened)) return error;
    std::vector<Form> forms;
    if (const DWORD error = ListForms(&forms)) return error;
    return FillRecords(forms, buffer, PackForm, returned);
}

}  // namespace

DWORD ListForms(std::vector<Form>* forms) {
    std::vector<Form> userForms;
    const DWORD error = ReadAtOnce([&userForms] { return ListUserForms(&userForms); });
    if (error != ERROR_SUCCESS) return error;
    forms->clear();
    for (const BuiltInForm& form : kBuiltInForms) {
        forms->push_back({form.number,
                          form.name,
                          {form.width, form.length},
                          {0, 0, form.width, form.length},
                          true});
    }
    std::move(userForms.begin(), userForms.end(), std::back_inserter(*forms));
    return ERROR_SUCCESS;
}

const Form* FindForm(const std::vector<Form>& forms, std::u16string_view name) {
    const auto found = std::ranges::find_if(
        forms, [name](const auto& other) { return EqualIgnoringUnicodeCase(other, name); },
        &Form::name);
    return found == forms.end() ? nullptr : &*found;
}

const Form* FindForm(const std::vector<Form>& forms, WORD number) {
    const auto found = std::ranges::find(forms, number, &Form::number);
    return found == forms.end() ? nullptr : &*found;
}

}  // namespace platform::spooler

using platform::Answer;
using platform::Fail;
using platform::InjectedFailure;

namespace spooler = platform::spooler;

BOOL WINAPI EnumFormsW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                       LPDWORD returned) {
    if (const auto error = InjectedFailure("EnumFormsW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return spooler::Enumerate(printer, level, {buffer, size, needed}, returned);
    }));
}

BOOL WINAPI AddFormW(HANDLE printer, DWORD level, LPBYTE record) {
    if (const auto error = InjectedFailure("AddFormW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return spooler::Add(printer, level, reinterpret_cast<const FORM_INFO_1W*>(record));
    }));
}

BOOL WINAPI DeleteFormW(HANDLE printer, LPWSTR name) {
    if (const auto error = InjectedFailure("DeleteFormW")) return Fail(*error);
    return Answer(platform::Contained([&] { return spooler::Delete(printer, name); }));
}

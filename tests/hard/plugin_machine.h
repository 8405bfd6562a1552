/// A machine with a printer for the plug-in's own operations, put back as it was before each case.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "tests/support/document_page.h"
#include "tests/support/patient_user.h"
#include "tests/support/test_machine.h"
#include "tests/support/test_printer.h"
#include "watermark/watermark_list.h"

namespace hard {

/// The list that the printer keeps before a case: no watermark and five others.
[[nodiscard]] const oemui::WatermarkList& StoredBefore();
[[nodiscard]] std::string BytesOf(const oemui::WatermarkList& list);
/// The names of the listed entries, each with a bar behind it.
[[nodiscard]] std::string NamesIn(const std::string& storedList);
/// What makes a stored list one that nobody wrote as a whole; empty when it is one, or none.
[[nodiscard]] std::string WrongWith(const std::string& storedList);

/// What is open now and was not, or was and is not; empty when all is as it was.
[[nodiscard]] std::string ChangeSince(const std::map<std::string, int>& liveObjects);

/// Writes a file of the machine, with its folder.
void WriteFile(const std::filesystem::path& file, const std::string& contents);

class PluginMachine {
public:
    PluginMachine();
    /// The model is T, the printer has its list, its port and no print processor.
    void Restore();
    [[nodiscard]] std::string StoredList() const;
    void StoreList(const std::string& bytes);
    void UsePort(const tests::Text& port) { printer_.SetPort(port); }
    [[nodiscard]] const tests::Text& PrinterName() const { return printer_.Name(); }

    tests::PatientUser user;

private:
    tests::TestMachine machine_;
    tests::TestPrinter printer_{TEXT("Office")};
};

/// Adds the driver's items that the plug-in looks for, and builds the page. Throws when then one
/// of the plug-in's items is neither whole nor cleared, or they take too much of the page's heap.
void BuildWhole(tests::DocumentPage* page);
/// Presses the button of the watermark item, switched on.
void OpenEditor(tests::DocumentPage* page);

}  // namespace hard

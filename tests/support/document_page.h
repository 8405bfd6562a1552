/// A document page as the driver makes it: its own items, the devmodes, a heap, and a driver that
/// answers about its features and hears about changed selections.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"
#include "devmode/private_devmode.h"
#include "docprops/document_items.h"

namespace tests {

class DocumentPage {
public:
    /// \param printerName  opened for the page when there is such a printer. The driver is set up
    ///        not to ask the printer for its options, and to have all of them.
    explicit DocumentPage(std::basic_string<WCHAR> printerName = TEXT("No Such Printer"));
    ~DocumentPage();
    DocumentPage(const DocumentPage&) = delete;
    DocumentPage& operator=(const DocumentPage&) = delete;

    /// Adds an item of the driver's.
    DocumentPage& With(BYTE publicId, LONG selection, const std::vector<std::string>& choices = {});
    /// Sets the option of a driver feature; an empty option makes the feature unknown.
    DocumentPage& Setting(const std::string& feature, const std::string& option);
    /// The driver gives no functions.
    DocumentPage& WithoutFunctions();
    /// The driver only hears of changes.
    DocumentPage& WithoutQuestions();

    /// Asks for the number of items, makes room for them and has them built.
    void Build();
    /// Room for the plug-in's items, with nothing in them but a type, for the callback alone.
    void MakeRoom(DWORD count = oemui::kDocumentItemCount);
    /// Calls the page's callback. \param current  the item that the reason is about.
    LONG Report(WORD reason, OPTITEM* current = nullptr);

    OEMCUIPPARAM& Params();
    OPTITEM& Own(oemui::DocumentItem place) { return ownItems_[place]; }
    OPTITEM& Driver(BYTE publicId);
    OPTITEM* FindDriver(BYTE publicId);  ///< null when the driver has no such item
    OPTPARAM& Choice(BYTE publicId, std::size_t place);

    DEVMODEW publicDevmode = {};
    oemui::PrivateDevmode privateDevmode = {};
    std::vector<std::string> asked;  ///< features, in order
    std::vector<BYTE> toldAbout;     ///< public IDs of items, in order

private:
    struct DriverObject : OEMUIOBJ {
        DocumentPage* page;
        std::map<std::string, std::string> settings;
    };
    struct DriverChoices {
        std::deque<std::basic_string<WCHAR>> texts;
        std::vector<OPTPARAM> records;
        OPTTYPE type;
    };

    static BOOL APIENTRY GetSetting(PVOID driver, PCSTR feature, PVOID output, DWORD size,
                                    PDWORD needed, PDWORD options);
    static BOOL APIENTRY UpdateSetting(PVOID driver, PVOID item, DWORD previous, DWORD mode);

    std::basic_string<WCHAR> printerName_;
    oemui::UniquePrinter printer_;
    HANDLE heap_;
    OEMUIPROCS functions_ = {GetSetting, UpdateSetting};
    DriverObject driver_ = {};
    std::vector<OPTITEM> driverItems_;
    std::deque<DriverChoices> driverChoices_;
    std::vector<OPTITEM> ownItems_;
    OEMCUIPPARAM params_ = {};
};

}  // namespace tests

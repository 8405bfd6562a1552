#include "docprops/duplex_and_trays.h"

#include <cstring>
#include <string_view>

#include "common/page_records.h"
#include "docprops/driver_choices.h"
#include "printerprops/pjl_query.h"
#include "printerprops/port_discovery.h"
#include "resources/resource_ids.h"

namespace oemui {
namespace {

constexpr BYTE kNotInstalledFlags = OPTPF_DISABLED | OPTPF_OVERLAY_STOP_ICON;

/// Whether the driver can be asked about its features.
bool AnswersQuestions(const OEMCUIPPARAM& params) {
    POEMUIPROCS driver = DriverFunctions(params);
    return driver != nullptr && driver->DrvGetDriverSetting != nullptr;
}

/// The driver's answer about the current option of one of its features.
class FeatureSetting {
public:
    /// \param feature  8-bit keyword, case-sensitive.
    FeatureSetting(const OEMCUIPPARAM& params, PCSTR feature) {
        if (!AnswersQuestions(params)) return;
        DWORD needed = 0;
        DWORD options = 0;
        result_ = DriverFunctions(params)->DrvGetDriverSetting(params.poemuiobj, feature, keyword_,
                                                               sizeof keyword_, &needed, &options);
    }

    /// Whether the option's keyword begins so, byte for byte; a driver that gives no answer leaves
    /// the keyword empty.
    [[nodiscard]] bool BeginsWith(std::string_view start) const {
        return std::string_view(keyword_, sizeof keyword_).starts_with(start);
    }

    /// Whether the driver knows no such feature at all.
    [[nodiscard]] bool IsUnknown() const { return static_cast<HRESULT>(result_) == E_NOTIMPL; }

private:
    char keyword_[260] = {};
    BOOL result_ = TRUE;
};

/// Asks the printer itself; nothing when it cannot be asked or the query fails.
std::optional<InstalledOptions> QueryPrinter(const OEMCUIPPARAM& params) {
    PrinterLink link = {};
    if (!DiscoverPrinterPort(params.hPrinter, &link)) return {};
    return QueryInstalledOptions(params.pPrinterName, link);
}

InstalledOptions FindInstalledOptions(const OEMCUIPPARAM& params) {
    if (!FeatureSetting(params, "AutoConfig").BeginsWith("OFF")) {
        if (const auto installed = QueryPrinter(params)) return *installed;
    }
    return ReadInstalledOptions(params);
}

void AdjustBooklet(const OEMCUIPPARAM& params, bool isDuplexInstalled) {
    POPTITEM nup = FindDriverItem(params, DMPUB_NUP);
    POPTPARAM booklet =
        nup == nullptr ? nullptr : FindChoice(*nup, static_cast<LONG>(NupChoice::kBooklet));
    if (booklet == nullptr) return;
    if (isDuplexInstalled) {
        booklet->Flags &= static_cast<BYTE>(~OPTPF_HIDE);
    } else {
        booklet->Flags = OPTPF_HIDE;
    }
}

void ForceSimplex(const OEMCUIPPARAM& params, POPTITEM duplex) {
    duplex->Sel = kDuplexOff;
    if (params.pPublicDM != nullptr) params.pPublicDM->dmDuplex = DMDUP_SIMPLEX;
    // The value replaces every other flag: without a duplex unit nothing else of the item may
    // survive.
    duplex->Flags = OPTIF_DISABLED;
    ReportSelectionToDriver(params, duplex);
}

void AdjustDuplex(const OEMCUIPPARAM& params, bool isInstalled) {
    POPTITEM duplex = FindDriverItem(params, DMPUB_DUPLEX);
    if (duplex == nullptr) return;
    if (isInstalled) {
        duplex->Flags &= ~static_cast<DWORD>(OPTIF_DISABLED);
    } else {
        ForceSimplex(params, duplex);
    }
    AdjustBooklet(params, isInstalled);
}

/// The first choice is the driver's own and is never taken for a tray.
void AdjustTray(const OEMCUIPPARAM& params, UINT nameId, bool isInstalled) {
    POPTITEM source = FindDriverItem(params, DMPUB_DEFSOURCE);
    const MessageText name(nameId, PageModule(params));
    if (source == nullptr || name.empty()) return;
    for (LONG i = 1; POPTPARAM choice = FindChoice(*source, i); ++i) {
        if (!EqualIgnoringAsciiCase(ItemText(choice->pData), name.View())) continue;
        choice->Flags = isInstalled ? static_cast<BYTE>(choice->Flags & ~kNotInstalledFlags)
                                    : kNotInstalledFlags;
        return;
    }
}

}  // namespace

void AdjustDriverItems(POEMCUIPPARAM params) {
    const InstalledOptions installed = FindInstalledOptions(*params);
    AdjustDuplex(*params, installed.Duplex);
    AdjustTray(*params, IDS_TRAY_2, installed.Tray2);
    if (!AnswersQuestions(*params)) return;
    if (!FeatureSetting(*params, "Tray3").IsUnknown()) {
        AdjustTray(*params, IDS_TRAY_3, installed.Tray3);
    }
}

InstalledOptions ReadInstalledOptions(const OEMCUIPPARAM& params) {
    InstalledOptions installed;
    installed.Tray2 = !FeatureSetting(params, "Tray2").BeginsWith("N");
    installed.Duplex = !FeatureSetting(params, "DuplexUnit").BeginsWith("N");
    installed.Tray3 = false;
    if (installed.Tray2) {
        const FeatureSetting tray3(params, "Tray3");
        installed.Tray3 = !tray3.IsUnknown() && !tray3.BeginsWith("N");
    }
    return installed;
}

}  // namespace oemui

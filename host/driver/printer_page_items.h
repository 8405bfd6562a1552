/// The driver's items of the printer page, over the printer's installable options.
#pragma once

#include "host/driver/installed_options.h"
#include "host/driver/page_items.h"

namespace host {

class PrinterPageItems final : public PageItems {
public:
    /// \param printer  open for as long as the page lives; storing needs
    ///        PRINTER_ACCESS_ADMINISTER. The options must live as long.
    PrinterPageItems(HANDLE printer, const Model& model, InstalledOptions& options);

    void Take(std::size_t item) override;
    void Save() override { options_.Store(printer_); }

private:
    HANDLE printer_;
    InstalledOptions& options_;
    std::vector<const OptionKeywords*> bindings_;  ///< one for each item; null for groups
};

}  // namespace host

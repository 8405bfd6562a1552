/// The driver's items of the document page, over a devmode.
#pragma once

#include "host/driver/devmode.h"
#include "host/driver/models.h"
#include "host/driver/page_items.h"

namespace host {

class DocumentPageItems final : public PageItems {
public:
    /// \param printer  open for as long as the page lives; storing needs
    ///        PRINTER_ACCESS_ADMINISTER. The devmode must live as long.
    DocumentPageItems(HANDLE printer, const Model& model, Devmode& devmode);

    void Take(std::size_t item) override;
    void Save() override;

private:
    enum class Setting : std::uint8_t {
        None,
        FormName,
        Public,  ///< a field of the public devmode, by the table of the .cpp
        Copies,
        Nup,
    };
    struct Binding {
        Setting setting;
        std::size_t field;  ///< place in the table of public fields
    };

    void AddForms();
    void AddSources(const Model& model);
    void AddPublic(std::size_t field, std::vector<ChoiceSpec> choices);
    void AddNup();
    void AddGroup(std::u16string name);
    void Show(std::size_t item, LONG value);

    HANDLE printer_;
    Devmode& devmode_;
    std::vector<Binding> bindings_;  ///< one for each item
};

}  // namespace host

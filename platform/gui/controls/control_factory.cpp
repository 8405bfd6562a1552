#include "platform/gui/controls/control_factory.h"

#include "platform/gui/controls/button_control.h"
#include "platform/gui/controls/control_owner.h"
#include "platform/gui/controls/drop_down_list.h"
#include "platform/gui/controls/edit_control.h"
#include "platform/gui/controls/static_control.h"
#include "platform/gui/controls/up_down.h"

namespace platform {
namespace {

template <typename Made>
std::unique_ptr<Control> Make(ControlOwner& owner, const ControlTemplate& made) {
    return std::make_unique<Made>(owner, made);
}

std::unique_ptr<Control> MakeButton(ControlOwner& owner, const ControlTemplate& made) {
    if ((made.Style & kButtonTypeMask) == BS_GROUPBOX) return Make<GroupBox>(owner, made);
    return Make<ButtonControl>(owner, made);
}

struct ControlClass {
    QLatin1String name;
    std::unique_ptr<Control> (*make)(ControlOwner&, const ControlTemplate&);
};

const ControlClass kClasses[] = {
    {QLatin1String("BUTTON"), MakeButton},
    {QLatin1String("EDIT"), Make<EditControl>},
    {QLatin1String("STATIC"), Make<StaticControl>},
    {QLatin1String("COMBOBOX"), Make<DropDownList>},
    {QLatin1String("msctls_updown32"), Make<UpDown>},
};

}  // namespace

std::unique_ptr<Control> MakeControl(ControlOwner& owner, const ControlTemplate& made,
                                     const QRect& place) {
    const QString name = QString::fromStdU16String(made.ClassName);
    for (const ControlClass& known : kClasses) {
        if (name.compare(known.name, Qt::CaseInsensitive) != 0) continue;
        std::unique_ptr<Control> control = known.make(owner, made);
        control->Place(place);
        control->Widget()->setVisible((made.Style & WS_VISIBLE) != 0);
        control->Widget()->setEnabled((made.Style & WS_DISABLED) == 0);
        return control;
    }
    return nullptr;
}

}  // namespace platform

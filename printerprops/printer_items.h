/// The printer's property page: the installable options and the switch that sets them from the
/// printer's own answer. Everything here runs on the property sheet's thread.
#pragma once

#include "common/oem_driver_interface.h"
#include "printerprops/port_discovery.h"

namespace oemui {

/// Answers the number of items (without item memory), or clears them and puts the page's callback
/// in place. The items stay empty: the page's behaviour is on the driver's own items.
/// \param mode  not looked at.
/// \return S_OK always.
HRESULT BuildPrinterItems(DWORD mode, POEMCUIPPARAM params);

/// What the property sheet reports of the printer page. May wait for the printer.
/// \return the action code for the sheet, CPSUICB_ACTION_*.
LONG APIENTRY PrinterPropertyCallback(PCPSUICBPARAM callback, POEMCUIPPARAM params) noexcept;

/// Switches "Auto Configure" by whether the printer can be asked, and asks it when it is on.
void PrinterPageActivated(POEMCUIPPARAM params);

/// Greys the option items while "Auto Configure" is on, and opens them for the user while it is
/// off.
void UpdateOptionItemStates(POEMCUIPPARAM params);

/// Sets the option items from the printer's answer; everything counts as installed when the
/// printer gives no usable one.
/// \param changed  whether a selection changed.
/// \return whether the printer was asked; no item changes otherwise.
bool AutoConfigure(POEMCUIPPARAM params, const PrinterLink& link, bool* changed);

/// The first of the driver's items below the top two levels with the displayed name of a string ID
/// and, unless 0 is given, a first choice with the text of another.
/// \return its index, -1 for none.
int FindDriverItemByName(POEMCUIPPARAM params, UINT nameId, UINT firstOptionId);

}  // namespace oemui

/// The older name of `current_printer.h`.
#pragma once

#include "common/current_printer.h"

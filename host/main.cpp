#include <iostream>

#include "host/commands.h"

int main(int count, char** arguments) {
    return host::RunHost({arguments + 1, arguments + count}, std::cout, std::cerr,
                         host::OwnPackageSource());
}

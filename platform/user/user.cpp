#include "platform/user/user.h"

#include "platform/gui/windows_user.h"

namespace platform {
namespace {

User* current = nullptr;

}  // namespace

UserScope::UserScope(User& user) : previous_(current) {
    current = &user;
}

UserScope::~UserScope() {
    current = previous_;
}

User& CurrentUser() {
    return current == nullptr ? WindowsUser() : *current;
}

}  // namespace platform

#include "platform/user/user.h"

namespace platform {
namespace {

User* current = nullptr;
User* atScreen = nullptr;

}  // namespace

UserScope::UserScope(User& user) : previous_(current) {
    current = &user;
}

UserScope::~UserScope() {
    current = previous_;
}

void NameUserAtScreen(User& user) {
    atScreen = &user;
}

User& CurrentUser() {
    return current == nullptr ? *atScreen : *current;
}

}  // namespace platform

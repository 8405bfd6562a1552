#include "host/errors/suggestions.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(Suggestions, TellSlipsAndPartsButNotStrangers) {
    const std::vector<std::string> known = {"Office", "Scaling", "Paper Size", "Paper Source"};
    const struct {
        const char* wanted;
        std::vector<std::string> near;
    } rows[] = {
        {"Ofice", {"Office"}},
        {"paper", {"Paper Size", "Paper Source"}},
        {"Paper Siez", {"Paper Size"}},
        {"Wombat", {}},
        {"", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(NearNames(row.wanted, known), row.near) << row.wanted;
}

TEST(Suggestions, NamesAllWhenNoneIsNearAndTheyAreFew) {
    EXPECT_EQ(UnknownName("key", "Fn", {"Tab", "Enter"}),
              "no key \"Fn\"; known: \"Tab\", \"Enter\"");
    EXPECT_EQ(UnknownName("printer", "Any", {}), "no printer \"Any\"; there is none");
}

}  // namespace
}  // namespace host

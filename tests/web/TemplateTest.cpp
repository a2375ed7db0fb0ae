#include "web/ReplaceComponent.h"

#include <gtest/gtest.h>

namespace VORN::Web {
namespace {

TEST(ReplaceComponent, PutsValuesInThePlaceOfNames) {
    const Values values{{"A", "1"}, {"nested", "$(A)$$"}, {"", "blank"}, {"a $$ b", "odd"}};
    constexpr std::pair<const char*, const char*> kCases[] = {
        {"", ""},
        {"no placeholder\r\n", "no placeholder\r\n"},
        {"x=$(A),y=$(B)", "x=1,y="},
        {"$(A)$(A)$(B)$(A)", "111"},
        {"in[$(A)]word$(A)s", "in[1]word1s"},
        {"$(nested)", "$(A)$$"},
        {"$() $(a $$ b)", "blank odd"},
        {"$$ $$(A) $$$(A) $$$$", "$ $(A) $1 $$"},
        {"$ $A (A) $", "$ $A (A) $"},
        {"$(A) $(A $$ ", "1 $(A $ "},
        {"$($(A)", ""}, // the name is "$(A"
    };
    for (const auto& [text, rendered] : kCases) {
        const ReplaceComponent component{text};
        for (int time = 0; time < 2; ++time) {
            std::string output = "before ";
            component.render(output, values);
            EXPECT_EQ(output, std::string{"before "} + rendered) << text;
        }
    }
}

TEST(StaticComponent, RendersItsTextAsItIs) {
    std::string output = "before ";
    StaticComponent{"$(A) $$"}.render(output, {{"A", "1"}});
    EXPECT_EQ(output, "before $(A) $$");
}

} // namespace
} // namespace VORN::Web

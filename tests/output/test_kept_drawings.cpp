#include "tests/SourceFolder.h"
#include "tests/output/DrawingText.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace quarnel {

TEST(KeptDrawings, AreThoseOfTheExamples) {
    const std::string root = test::SourceFolder() + "/";
    for (const std::string name : {"pratt-county-1998", "every-field"}) {
        std::ifstream file(root + "tests/output/golden/" + name + ".drawing", std::ios::binary);
        const std::string kept{std::istreambuf_iterator<char>(file), {}};
        ASSERT_FALSE(kept.empty()) << name;
        EXPECT_EQ(ExampleDrawings(root + "examples/" + name + ".qn2"), kept) << name;
    }
}

} // namespace quarnel

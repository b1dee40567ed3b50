#include "quor/Keywords.h"

#include <gtest/gtest.h>

#include <string>

using namespace Veld::Quor::Core::Keywords;

TEST(Enumerations, EachRowIsFoundByItsTextAndByNoOther)
{
    ASSERT_EQ(SimulatorType::EnumInfos().size(), 10U);
    ASSERT_EQ(SimulatorModeType::EnumInfos().size(), 3U);
    EXPECT_EQ(&SimulatorType::EnumInfos(), &SimulatorType::EnumInfos());
    for (int value = 0; value < SimulatorType::Count; ++value) {
        const auto simulator = SimulatorType::Enum(value);
        EXPECT_EQ(SimulatorType::FromString(SimulatorType::ToString(simulator)), simulator);
    }
    EXPECT_EQ(SimulatorType::FromString("Wend_GE"), 8);
    EXPECT_EQ(SimulatorModeType::FromString("Thermal"), 2);
    EXPECT_EQ(UnitSystem::FromString("PVT-M"), 3);
    EXPECT_EQ(SectionType::FromString("OPTIMIZE"), 8);
    EXPECT_EQ(SimulatorType::ToString(SimulatorType::Any), "");
}

TEST(Enumerations, AnUnknownTextIsRowZeroAndNotFound)
{
    for (const char* text : {"", "summary", "carrow", "Wend_", "Wend_GEX", "GRID "}) {
        bool found = true;
        EXPECT_EQ(SectionType::FromString(text, &found), SectionType::RUNSPEC) << text;
        EXPECT_FALSE(found) << text;
        found = true;
        EXPECT_EQ(SimulatorType::FromString(std::string(text), &found), SimulatorType::Carrow) << text;
        EXPECT_FALSE(found) << text;
    }
    bool found = false;
    EXPECT_EQ(SectionType::FromString("SUMMARY", &found), SectionType::SUMMARY);
    EXPECT_TRUE(found);
}

TEST(LibProperties, AreSevenPairsAndEmptyBeyond)
{
    ASSERT_EQ(getNumLibProperties(), 7);
    const char* const names[] = {"CompanyName", "FileVersion", "FileDescription", "ProductVersion",
        "InternalName", "LegalCopyright", "OriginalFilename"};
    const char* name = nullptr;
    const char* value = nullptr;
    for (int i = 0; i < 7; ++i) {
        getLibProperty(i, name, value);
        EXPECT_STREQ(name, names[i]);
        EXPECT_STRNE(value, "");
    }
    for (const int index : {-1, 7}) {
        getLibProperty(index, name, value);
        EXPECT_STREQ(name, "");
        EXPECT_STREQ(value, "");
    }
}

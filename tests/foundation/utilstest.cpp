#include "foundation/utils.h"

#include "tests/support/headlessapplication.h"
#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <string>

TEST(UtilsTest, HashesNames)
{
    const std::pair<const char*, unsigned int> cases[] = {
        {"ObjectBase", 0x0753faa8}, {"AnimCell", 0x9e322be8},     {"SequencerUniqueKey<sPoint>", 0xd7a3fbfe},
        {"Attribute", 3607898120u}, {"AnimSequencer", 868366973}, {"intermediate/anim/walk.asq.xml", 0xa3cae42d},
        {"", 0xFFFFFFFF},           {nullptr, 0xFFFFFFFF},
    };
    for (const auto& [text, hash] : cases)
        EXPECT_EQ(Utils::hash(text), hash) << (text ? text : "(null)");
    EXPECT_NE(Utils::hash("\xC3\xBC"), Utils::hash("\xC3\xA4")) << "bytes above 0x7F are hashed like all others";
}

TEST(UtilsTest, TakesNamesApart)
{
    EXPECT_STREQ(Utils::getFileExtension("a.b.c"), "b.c");
    EXPECT_EQ(Utils::getFileExtension("walk"), nullptr);
    EXPECT_EQ(Utils::getFileExtension(nullptr), nullptr);
    EXPECT_STREQ(Utils::getFileName("/data/v1.2/walk.tga"), "walk.tga");
    EXPECT_EQ(Utils::getFileName(nullptr), nullptr);

    const char* const cases[][2] = {
        {"intermediate/v1.2/walk.asq.xml", "v1.2/walk"},
        {"native/walk.seq", "walk"},
        {"anim/walk", "anim/walk"},
        {"my/native/walk.tex", "my/native/walk"},
        {"intermediate/.hidden", nullptr},
        {"", nullptr},
        {nullptr, nullptr},
    };
    for (const auto& [path, name] : cases)
        EXPECT_STREQ(Utils::getResourcePath(path).c_str(), name) << (path ? path : "(null)");
}

TEST(UtilsTest, ListsFilesWithoutRegardToCaseAndLeavesOutTheWaysUp)
{
    const TemporaryDirectory directory;
    for (const char* name : {"walk.tga", "Beta", "beta", "Alpha", ".hidden", "zeta"})
        directory.write(name, "12345");
    std::string names;
    Vector<Utils::FileInfo> entries;
    Utils::getFileList(entries, directory.getPath().c_str());
    for (Utils::FileInfo* entry : entries)
    {
        names += std::string(entry->name) + " ";
        EXPECT_TRUE(entry->size == 5 && !entry->directory);
        delete entry;
    }
    EXPECT_EQ(names, ".hidden Alpha Beta beta walk.tga zeta ");
    entries.clear();
    Utils::getFileList(entries, (directory / "absent").c_str());
    EXPECT_TRUE(entries.empty());
}

TEST(UtilsPathTest, NamesOnlyWhatStandsDirectlyBelowTheRoot)
{
    EXPECT_EQ(Utils::getPath("intermediate/walk.tga"), nullptr) << "without an application there is no root";

    const HeadlessApplication application;
    const std::string root = application.getRootPath();
    const std::pair<std::string, const char*> cases[] = {
        {root + "intermediate/v1/walk.tga", "intermediate/v1/walk.tga"},
        {root + "native/walk.tex", "native/walk.tex"},
        {root + "v1/intermediate/walk.tga", nullptr},
        {root + "intermediate", nullptr},
        {"/elsewhere/intermediate/walk.tga", nullptr},
    };
    for (const auto& [path, below] : cases)
        EXPECT_STREQ(Utils::getPath(path.c_str()), below) << path;
    EXPECT_EQ(Utils::getPath(nullptr), nullptr);
}

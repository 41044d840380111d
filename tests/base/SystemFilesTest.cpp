// The base's calls into the system, on each system: file URLs and paths, folders and files
// with names beyond ASCII, replacing a file in one step, and Shift-JIS program names.
#include "base/CFile.h"
#include "base/CFileFind.h"
#include "base/PlatformFolders.h"
#include "base/SJIS.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(FileUrls, EscapeWhatUrlsDoNotAllowAndComeBackAsThePath) {
#ifdef _WIN32
    const std::string path = "C:/Users/Zoë/Application Data/";
    const std::string url = "file:///C%3A/Users/Zo%C3%AB/Application%20Data/";
#else
    const std::string path = "/home/zoë/my folder/";
    const std::string url = "file:///home/zo%C3%AB/my%20folder/";
#endif
    EXPECT_EQ(PathToFileURL(path), url);
    EXPECT_EQ(FileURLToPath(url), path);
    EXPECT_EQ(FileURLToPath(path), path) << "a plain path stays as it is";
    EXPECT_EQ(FileURLToPath("file://localhost/srv/a%2"), "/srv/a%2") << "a cut escape stays";
}

TEST(Paths, AbsoluteOnesAndSeparatorsFollowTheSystem) {
    EXPECT_FALSE(IsAbsolutePath("relative/name"));
#ifdef _WIN32
    for (const char* absolute : {"C:/x", "d:\\x", "//server/share", "\\\\server\\share"})
        EXPECT_TRUE(IsAbsolutePath(absolute)) << absolute;
    EXPECT_FALSE(IsAbsolutePath("/x")) << "rooted on no drive";
    EXPECT_EQ(NormalizedPath("C:\\Program Files\\VST/x"), "C:/Program Files/VST/x");
#else
    EXPECT_TRUE(IsAbsolutePath("/x"));
    EXPECT_FALSE(IsAbsolutePath("C:/x"));
    EXPECT_EQ(NormalizedPath("a\\b/c"), "a\\b/c") << "a backslash is part of a name here";
#endif
}

TEST(SystemFiles, NamesBeyondAsciiWorkForFoldersAndFiles) {
    TempFolder temporary;
    const std::string folder = temporary / "Ämter/日本語/";
    ASSERT_TRUE(EnsureDirectory(PathToFileURL(folder)));
    EXPECT_TRUE(IsDirectory(folder));

    const std::string file = folder + "Bänke.fxb";
    CFile writer;
    ASSERT_TRUE(writer.Open(PathToFileURL(file).c_str(), CFile::modeCreate | CFile::modeWrite));
    EXPECT_TRUE(writer.Write("abcdef", 6));
    EXPECT_TRUE(writer.Flush());
    EXPECT_TRUE(writer.Close());
    EXPECT_TRUE(CFileFind().FindFile(file.c_str()));
    EXPECT_FALSE(CFileFind().FindFile(folder.c_str())) << "a folder is not a file";
    EXPECT_FALSE(IsDirectory(file));

    CFile reader;
    ASSERT_TRUE(reader.Open(file.c_str(), CFile::modeRead));
    EXPECT_EQ(reader.GetLength(), 6);
    EXPECT_EQ(reader.Seek(-2, CFile::end), 4);
    char tail[4] = {};
    EXPECT_EQ(reader.Read(tail, 3), 2u) << "fewer bytes at the end";
    EXPECT_STREQ(tail, "ef");
    EXPECT_FALSE(reader.Write("x", 1)) << "opened for reading only";
    EXPECT_FALSE(CFile().Open(folder.c_str(), CFile::modeRead)) << "a folder does not open";
}

TEST(SystemFiles, RenameOverReplacesAnExistingFileWhole) {
    TempFolder folder;
    WriteWholeFile(folder / "bank", "old");
    WriteWholeFile(folder / "bank.saving", "new");
    ASSERT_TRUE(RenameOver(folder / "bank.saving", folder / "bank"));
    EXPECT_EQ(ReadWholeFile(folder / "bank"), "new");
    EXPECT_FALSE(CFileFind().FindFile((folder / "bank.saving").c_str()));
    EXPECT_FALSE(RenameOver(folder / "missing", folder / "bank"));
    EXPECT_EQ(ReadWholeFile(folder / "bank"), "new");
    EXPECT_TRUE(RemoveFile(folder / "bank"));
    EXPECT_FALSE(RemoveFile(folder / "bank"));
}

TEST(ShiftJis, ProgramNamesConvertBothWaysAndUtf8StaysAsItIs) {
    const char* const katakana = "\x83\x65\x83\x58\x83\x67"; // "テスト" in Shift-JIS
    CString name;
    CheckSJISAndToUFT8(katakana, name);
    EXPECT_STREQ(static_cast<const char*>(name), "テスト");
    EXPECT_STREQ(static_cast<const char*>(UTF8ToSJSINS("テスト")), katakana);
    CheckSJISAndToUFT8("Zoë", name);
    EXPECT_STREQ(static_cast<const char*>(name), "Zoë") << "valid UTF-8 is not decoded again";
    CheckSJISAndToUFT8("\x83", name);
    EXPECT_STREQ(static_cast<const char*>(name), "\x83") << "a cut character stays as it was";
    EXPECT_STREQ(static_cast<const char*>(UTF8ToSJSINS("€")), "€") << "no such character";
}

} // namespace

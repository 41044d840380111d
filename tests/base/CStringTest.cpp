#include "base/CString.h"

#include <gtest/gtest.h>

// Format writes printf's text however long, and may read the string's own old text.
TEST(CString, FormatProducesPrintfTextOfAnyLengthFromAnySource) {
    CString text;
    text.Format("%d|%.1f|%s|%05d", -12, 2.25, "dB", 42);
    EXPECT_STREQ(text, "-12|2.2|dB|00042");
    EXPECT_EQ(text.GetLength(), 16);
    text = "Gain";
    text.Format("%s %s", text.GetString(), text.GetString());
    EXPECT_EQ(text, "Gain Gain");
    text.Format("%0500d", 7);
    EXPECT_EQ(text.GetLength(), 500);
    EXPECT_EQ(text.Right(2), "07");
}

TEST(CString, ConstructionAndConcatenation) {
    EXPECT_STREQ(CString(static_cast<const char*>(nullptr)), "");
    CString appended("a");
    appended += static_cast<const char*>(nullptr);
    EXPECT_EQ(appended, "a");
    EXPECT_EQ(CString("abcdef", 3), "abc");
    EXPECT_EQ(CString("ab\0cd", 5), "ab");
    EXPECT_EQ(CString('-', 3), "---");
    CString text("LOW");
    text += ' ';
    text += CString("PEAK");
    EXPECT_EQ(text + "!", "LOW PEAK!");
    EXPECT_EQ("[" + text, "[LOW PEAK");
    EXPECT_TRUE(text != "LOW");
    EXPECT_TRUE(CString("a") < CString("b"));
    EXPECT_LT(CString("Hi").Compare("hi"), 0);
}

// Indexes and ranges outside the text read nothing.
TEST(CString, IndexesAndRangesAreClampedToTheText) {
    const CString text("Zephyra");
    EXPECT_EQ(text[1], 'e');
    EXPECT_EQ(text.GetAt(7), '\0');
    EXPECT_EQ(text.GetAt(-1), '\0');
    EXPECT_EQ(text.Left(3), "Zep");
    EXPECT_EQ(text.Left(99), "Zephyra");
    EXPECT_EQ(text.Mid(4), "yra");
    EXPECT_EQ(text.Mid(2, 2), "ph");
    EXPECT_EQ(text.Mid(-3, 2), "Ze");
    EXPECT_EQ(text.Mid(20), "");
    EXPECT_EQ(text.Right(3), "yra");
    EXPECT_EQ(text.Right(-1), "");
}

TEST(CString, FindReportsPositionOrMinusOne) {
    const CString text("a.b.c");
    EXPECT_EQ(text.Find('.'), 1);
    EXPECT_EQ(text.Find('.', 2), 3);
    EXPECT_EQ(text.Find('x'), -1);
    EXPECT_EQ(text.Find("b.c"), 2);
    EXPECT_EQ(text.Find('.', 99), -1);
}

// The toolkit's narrow string: printf formatting, construction, comparison and the clamped
// reads the panel's texts rely on.
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
    EXPECT_EQ(text.GetAt(498), '0');
    EXPECT_EQ(text.GetAt(499), '7');
}

// A missing text reads as empty; a length stops at the first NUL.
TEST(CString, ConstructionAndComparison) {
    EXPECT_STREQ(CString(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(CString("abcdef", 3), "abc");
    EXPECT_EQ(CString("ab\0cd", 5), "ab");
    CString text;
    text = static_cast<const char*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(CString("LOW") != "LOW ");
    EXPECT_LT(CString("Hi").Compare("hi"), 0);
}

// Indexes and counts outside the text read nothing.
TEST(CString, IndexesAndCountsAreClampedToTheText) {
    const CString text("Zephyra");
    EXPECT_EQ(text[1], 'e');
    EXPECT_EQ(text.GetAt(7), '\0');
    EXPECT_EQ(text.GetAt(-1), '\0');
    EXPECT_EQ(text.Left(3), "Zep");
    EXPECT_EQ(text.Left(99), "Zephyra");
    EXPECT_EQ(text.Left(-1), "");
}

#include "pallomir/files/pdf_bookmarks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pallomir {
namespace {

/// A document of two pages, laid out as Qt does. `pages` is the list of its pages, `root` more of its catalog.
std::string Document(const std::string& pages = "[\n5 0 R\n3 0 R\n]", const std::string& root = "") {
  const std::vector<std::string> objects = {
      "<<\n/Title (T)\n>>", "<<\n/Type /Catalog\n/Pages 4 0 R\n" + root + ">>", "<<\n/Type /Page\n/Parent 4 0 R\n>>",
      "<<\n/Type /Pages\n/Kids \n" + pages + "\n/Count 2\n>>", "<<\n/Type /Page\n/Parent 4 0 R\n>>"};
  std::string pdf = "%PDF-1.4\n", table = "xref\n0 6\n0000000000 65535 f \n";
  for (size_t i = 0; i < objects.size(); ++i) {
    const std::string offset = std::to_string(pdf.size());
    table += std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
    pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
  }
  const std::string start = std::to_string(pdf.size());
  return pdf + table + "trailer\n<<\n/Size 6 \n/Info 1 0 R\n/Root 2 0 R\n>>\nstartxref\n" + start + " \n%%EOF\n";
}

const std::vector<std::string> kTitles = {"Cluster 1", "Cluster (2)\\"};

TEST(PdfBookmarks, StandBehindTheDocumentInATableThatLeadsToThem) {
  const std::string before = Document();
  const std::string pdf = WithBookmarks(before, kTitles).value_or("");
  ASSERT_TRUE(pdf.starts_with(before));
  const std::string added = pdf.substr(before.size());
  EXPECT_NE(added.find("7 0 obj\n<<\n/Title (Cluster 1)\n/Parent 6 0 R\n/Dest [5 0 R /Fit]\n/Next 8 0 R\n>>"),
            std::string::npos);
  EXPECT_NE(added.find("8 0 obj\n<<\n/Title (Cluster \\(2\\)\\\\)\n/Parent 6 0 R\n/Dest [3 0 R /Fit]\n/Prev 7 0 R\n>>"),
            std::string::npos);
  EXPECT_NE(added.find("6 0 obj\n<<\n/Type /Outlines\n/First 7 0 R\n/Last 8 0 R\n/Count 2\n>>"), std::string::npos);
  EXPECT_NE(added.find("2 0 obj\n<<\n/Type /Catalog\n/Pages 4 0 R\n/Outlines 6 0 R\n/PageMode /UseOutlines\n>>"),
            std::string::npos);
  EXPECT_NE(added.find("/Size 9\n/Root 2 0 R\n/Info 1 0 R\n/Prev " + std::to_string(before.find("xref\n")) + "\n"),
            std::string::npos);
  std::vector<std::string> entries;
  // Each part of the table: "7 1", then the offset of object 7 in ten digits.
  const std::string in = " 00000 n \n";
  for (size_t at = added.find(in); at != std::string::npos; at = added.find(in, at + 1)) {
    const size_t line = added.rfind('\n', at - 12);
    entries.push_back(added.substr(line + 1, added.find(' ', line) - line - 1));
    EXPECT_EQ(pdf.compare(std::stoul(added.substr(at - 10, 10)), 8, entries.back() + " 0 obj\n"), 0) << entries.back();
  }
  EXPECT_EQ(entries, (std::vector<std::string>{"2", "6", "7", "8"}));
  EXPECT_EQ(pdf.substr(std::stoul(pdf.substr(pdf.rfind("startxref") + 10)), 5), "xref\n");
}

TEST(PdfBookmarks, AreNotAddedToWhatIsNotUnderstood) {
  EXPECT_FALSE(WithBookmarks(Document(), std::vector<std::string>{"one"}));
  EXPECT_FALSE(WithBookmarks(Document(), std::vector<std::string>{}));
  EXPECT_FALSE(WithBookmarks(Document("[4 0 R 3 0 R]"), kTitles)) << "a list of pages within the list";
  EXPECT_FALSE(WithBookmarks(Document("[5 0 R 99 0 R]"), kTitles));
  EXPECT_FALSE(WithBookmarks(Document("9 0 R"), kTitles));
  EXPECT_FALSE(WithBookmarks(Document("[\n5 0 R\n3 0 R\n]", "/Outlines 5 0 R\n"), kTitles));
  const std::string whole = Document();
  for (size_t length = 0; length + 16 < whole.size(); ++length)
    EXPECT_FALSE(WithBookmarks(whole.substr(0, length), kTitles)) << length;
  std::string shifted = whole;
  shifted.insert(9, "%\n");
  EXPECT_FALSE(WithBookmarks(shifted, kTitles));
}

}  // namespace
}  // namespace pallomir

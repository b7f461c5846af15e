#include "pallomir/files/pdf_bookmarks.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>
#include <vector>

#include "pallomir/files/text_lines.h"

namespace pallomir {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// What stands in `text` behind the first `key`; empty if it does not hold it.
std::string_view Behind(std::string_view text, std::string_view key) {
  const size_t at = text.find(key);
  return at == std::string_view::npos ? std::string_view() : text.substr(at + key.size());
}

/// The whole number that `text` begins with, after blanks; 0 if it begins with none.
size_t NumberAt(std::string_view text) {
  const std::string_view word = TakeWord(text, kBlanks);
  size_t number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

/// A document as a table of objects and a trailer.
struct Document {
  std::string_view Bytes;
  size_t Table = 0;          ///< where the table of objects is
  std::string_view Trailer;  ///< from its "<<" to its last ">>"
  size_t Size = 0;           ///< objects, with the free one at 0
  size_t Root = 0;
  size_t Info = 0;  ///< 0 without one

  /// The text of an object, from its "<<" to its last ">>"; empty if it is not there.
  std::string_view Object(size_t id) const {
    constexpr size_t kEntry = 20;
    std::string_view entries = Behind(Bytes.substr(Table), "xref\n0 ");
    entries = Behind(entries, "\n");
    if (id == 0 || id >= Size || entries.size() < kEntry * Size) return {};
    const size_t at = NumberAt(entries.substr(kEntry * id, 10));
    if (at >= Bytes.size() || NumberAt(Bytes.substr(at)) != id) return {};
    return Dictionary(Bytes.substr(at, Bytes.find("endobj", at) - at));
  }

  static std::string_view Dictionary(std::string_view text) {
    const size_t begin = text.find("<<"), end = text.rfind(">>");
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin) return {};
    return text.substr(begin, end + 2 - begin);
  }
};

std::optional<Document> DocumentOf(std::string_view pdf) {
  constexpr std::string_view kStart = "startxref", kTrailer = "trailer";
  const size_t start = pdf.rfind(kStart), trailer = pdf.rfind(kTrailer);
  if (!pdf.starts_with("%PDF-1.") || start == std::string_view::npos || trailer == std::string_view::npos) return {};
  Document document;
  document.Bytes = pdf;
  document.Table = NumberAt(pdf.substr(start + kStart.size()));
  if (start < trailer || document.Table >= trailer || !pdf.substr(document.Table).starts_with("xref\n0 ")) return {};
  document.Trailer = Document::Dictionary(pdf.substr(trailer, start - trailer));
  document.Size = NumberAt(Behind(document.Trailer, "/Size"));
  document.Root = NumberAt(Behind(document.Trailer, "/Root"));
  document.Info = NumberAt(Behind(document.Trailer, "/Info"));
  return document;
}

/// The numbers of the page objects in a list "[6 0 R 12 0 R]".
std::vector<size_t> PagesIn(std::string_view kids) {
  kids = Behind(kids, "[");
  kids = kids.substr(0, std::min(kids.find(']'), kids.size()));
  std::vector<size_t> pages;
  for (std::string_view word; !(word = TakeWord(kids, kBlanks)).empty();) {
    pages.push_back(NumberAt(word));
    TakeWord(kids, kBlanks);
    TakeWord(kids, kBlanks);
  }
  return pages;
}

std::string Reference(size_t id) {
  return std::to_string(id) + " 0 R";
}

/// A text between parentheses.
std::string Literal(std::string_view text) {
  std::string literal = "(";
  for (const char c : text) {
    if (c == '(' || c == ')' || c == '\\') literal += '\\';
    literal += c;
  }
  return literal + ")";
}

/// The entries of a dictionary, with more of them.
std::string With(std::string_view dictionary, const std::string& entries) {
  return std::string(dictionary.substr(0, dictionary.size() - 2)) + entries + "\n>>";
}

/// The objects of the outline, from number `first` on: the outline itself, then its items.
std::map<size_t, std::string> OutlineOf(size_t first, const std::vector<size_t>& pages,
                                        std::span<const std::string> titles) {
  std::map<size_t, std::string> objects;
  const size_t count = pages.size(), last = first + count;
  objects[first] = "<<\n/Type /Outlines\n/First " + Reference(first + 1) + "\n/Last " + Reference(last) + "\n/Count " +
                   std::to_string(count) + "\n>>";
  for (size_t i = 0; i < count; ++i) {
    const size_t id = first + 1 + i;
    std::string item = "<<\n/Title " + Literal(titles[i]) + "\n/Parent " + Reference(first) + "\n/Dest [" +
                       Reference(pages[i]) + " /Fit]\n";
    if (i > 0) item += "/Prev " + Reference(id - 1) + "\n";
    if (id < last) item += "/Next " + Reference(id + 1) + "\n";
    objects[id] = item + ">>";
  }
  return objects;
}

/// The document with these objects, new ones or in place of old ones, behind it.
std::string Updated(const Document& document, const std::map<size_t, std::string>& objects) {
  std::string pdf(document.Bytes), table = "xref\n";
  if (!pdf.ends_with('\n')) pdf += '\n';
  for (const auto& [id, text] : objects) {
    std::string offset = std::to_string(pdf.size());
    offset.insert(0, 10 - std::min<size_t>(offset.size(), 10), '0');
    table += std::to_string(id) + " 1\n" + offset + " 00000 n \n";
    pdf += std::to_string(id) + " 0 obj\n" + text + "\nendobj\n";
  }
  const size_t start = pdf.size(), size = std::max(document.Size, objects.rbegin()->first + 1);
  return pdf + table + "trailer\n<<\n/Size " + std::to_string(size) + "\n/Root " + Reference(document.Root) +
         (document.Info == 0 ? "" : "\n/Info " + Reference(document.Info)) + "\n/Prev " +
         std::to_string(document.Table) + "\n>>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
}

}  // namespace

std::optional<std::string> WithBookmarks(std::string_view pdf, std::span<const std::string> titles) {
  const auto document = DocumentOf(pdf);
  if (!document || titles.empty()) return {};
  const std::string_view root = document->Object(document->Root);
  const std::string_view list = document->Object(NumberAt(Behind(root, "/Pages")));
  const std::vector<size_t> pages = PagesIn(Behind(list, "/Kids"));
  const auto isPage = [&](size_t id) { return !Behind(document->Object(id), "/Type /Page\n").empty(); };
  if (pages.size() != titles.size() || !std::all_of(pages.begin(), pages.end(), isPage) ||
      root.find("/Outlines") != std::string_view::npos)
    return {};
  std::map<size_t, std::string> objects = OutlineOf(document->Size, pages, titles);
  objects[document->Root] = With(root, "/Outlines " + Reference(document->Size) + "\n/PageMode /UseOutlines");
  return Updated(*document, objects);
}

}  // namespace pallomir

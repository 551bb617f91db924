#pragma once

#include <string>

#include "document/TypedText.h"
#include "tests/document/TestDocuments.h"

namespace analytics {

/// A public operation that reads a number, led to read one text.
template <typename Number>
struct NumberReader {
  const char* name;
  Number (*read)(const std::string& text, Number fallback);
};

/// A document whose root element has `text` as its text and as its attribute "n", byte for byte.
class DocumentOfText : public ParsedDocument {
 public:
  explicit DocumentOfText(const std::string& text) : ParsedDocument("<a/>") {
    DocumentNode root = NodeAt(*this, "/a");
    root.SetValue(text);
    root.SetProperty("n", text);
  }
};

constexpr NumberReader<int> kIntReaders[] = {
    {"TheConversion",
     [](const std::string& text, int fallback) { return NumberFromText(text, fallback); }},
    {"ADocumentOfAnElement",
     [](const std::string& text, int fallback) {
       return DocumentOfText(text).GetSingleValue("/a", fallback, nullptr);
     }},
    {"ADocumentOfAnAttribute",
     [](const std::string& text, int fallback) {
       return DocumentOfText(text).GetSingleValue("@n", fallback, nullptr);
     }},
    {"ANodeOfItsText",
     [](const std::string& text, int fallback) {
       DocumentOfText document(text);
       return NodeAt(document, "/a").GetValue(fallback);
     }},
    {"ANodeOfAnAttribute",
     [](const std::string& text, int fallback) {
       DocumentOfText document(text);
       return NodeAt(document, "/a").GetProperty("n", fallback);
     }},
};

/// Readers of double precision.
constexpr NumberReader<double> kDoubleReaders[] = {
    {"TheConversion",
     [](const std::string& text, double fallback) { return NumberFromText(text, fallback); }},
    {"ANodeOfAnAttribute",
     [](const std::string& text, double fallback) {
       DocumentOfText document(text);
       return NodeAt(document, "/a").GetNumericProperty("n", fallback);
     }},
};

/// Readers of single precision.
constexpr NumberReader<double> kFloatReaders[] = {
    {"TheConversion",
     [](const std::string& text, double fallback) -> double {
       return NumberFromText(text, static_cast<float>(fallback));
     }},
    {"ADocumentOfAnElement",
     [](const std::string& text, double fallback) {
       return DocumentOfText(text).GetNumericValue("/a", fallback);
     }},
    {"ADocumentOfAnAttribute",
     [](const std::string& text, double fallback) {
       return DocumentOfText(text).GetNumericValue("@n", fallback);
     }},
};

}  // namespace analytics

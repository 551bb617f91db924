#include "input/XmlInput.h"

#include <algorithm>
#include <cstring>

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include "Failure.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

/// Where libxml2 says that files outside the document are to be opened: nowhere. For a scope, since
/// the library opens its own files in the same way.
class NoOtherFiles {
 public:
  NoOtherFiles() : m_former(xmlGetExternalEntityLoader()) { xmlSetExternalEntityLoader(Refuse); }
  ~NoOtherFiles() { xmlSetExternalEntityLoader(m_former); }

  NoOtherFiles(const NoOtherFiles&) = delete;
  NoOtherFiles& operator=(const NoOtherFiles&) = delete;

 private:
  static xmlParserInputPtr Refuse(const char* /*url*/, const char* /*id*/,
                                  xmlParserCtxtPtr /*context*/) {
    return nullptr;
  }

  const xmlExternalEntityLoader m_former;
};

/// Frees a parser's context.
struct DeleteContext {
  void operator()(xmlParserCtxt* context) const noexcept { xmlFreeParserCtxt(context); }
};

std::string OneLine(const char* message) {
  std::string line = message ? message : "";
  line.erase(line.find_last_not_of(" \n") + 1);
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

constexpr const char* kTooDeep =
    "elements lie more than 256 deep in each other; nest them less deeply";
constexpr const char* kTooLong =
    "a text, an attribute, a comment or a section is longer than 10 MB; shorten it";
constexpr const char* kLongName = "a name is longer than 50000 bytes; shorten it";
constexpr const char* kMultiplying =
    "entities lead back to themselves or multiply beyond measure; write out what they stand for";

/// libxml2's `XML_ERR_RESOURCE_LIMIT`, which its older versions do not have.
constexpr int kResourceLimit = 114;

/// What a parser reads, and what was wrong with it.
struct Reading {
  const std::string& text;
  XmlProblem problem;
};

Reading& ReadingOf(const xmlParserCtxt& parser) { return *static_cast<Reading*>(parser._private); }

bool IsDeep(const xmlNode* node) {
  int depth = 0;
  for (; node; node = node->parent) ++depth;
  return depth > 256;
}

/// Whether more follows where the parser gives up: what it then calls unfinished is too long.
bool StopsShort(const xmlParserInput* input) {
  return input && input->cur < input->end && *input->cur != '\0';
}

/// The one of its limits at which a parser gives up for want of resources, or null. A text can only
/// be too long in a file that is longer, or because entities multiply.
const char* ResourceLimit(const xmlError& error, const xmlParserCtxt& parser) {
  if (IsDeep(parser.node)) return kTooDeep;
  if (ReadingOf(parser).text.size() > XML_MAX_TEXT_LENGTH) return kTooLong;
  return error.code == kResourceLimit ? kMultiplying : nullptr;
}

/// The limit of libxml2 that an error is about, as what to tell instead of its message; or null.
const char* LimitOf(const xmlError& error, const xmlParserCtxt& parser) {
  switch (error.code) {
    case kResourceLimit:
    case XML_ERR_INTERNAL_ERROR:
      return ResourceLimit(error, parser);
    case XML_ERR_ENTITY_LOOP:
      return kMultiplying;
    case XML_ERR_NAME_TOO_LONG:
      return kLongName;
    case XML_ERR_NO_MEMORY:
      return kTooLong;  // of a text that grows in pieces
    case XML_ERR_ATTRIBUTE_NOT_FINISHED:
    case XML_ERR_CDATA_NOT_FINISHED:
    case XML_ERR_COMMENT_NOT_FINISHED:
    case XML_ERR_PI_NOT_FINISHED:
      return StopsShort(parser.input) ? kTooLong : nullptr;
    default:
      return nullptr;
  }
}

XmlProblem ProblemOf(const xmlError& error, const xmlParserCtxt& parser) {
  const char* const limit = LimitOf(error, parser);
  return {error.line, limit ? limit : OneLine(error.message), limit != nullptr};
}

/// Errors of namespaces leave a document to the library.
bool IsRemark(const xmlError& error) {
  return error.level < XML_ERR_ERROR || error.domain == XML_FROM_NAMESPACE;
}

/// Keeps what was complained about first, because what follows is mostly its consequence. At a
/// limit, libxml2 may leave out the rest of the document without calling it a failure.
void KeepFirst(const xmlParserCtxt& parser, const xmlError& error) {
  if (IsRemark(error)) return;
  XmlProblem& problem = ReadingOf(parser).problem;
  const XmlProblem found = ProblemOf(error, parser);
  if (problem.message.empty() || (found.isLimit && !problem.isLimit)) problem = found;
}

/// The line on which the tag begins at whose end the parser stands: no tag holds a "<" in itself.
int LineOfTag(const xmlParserInput& input) {
  const xmlChar* at = input.cur;
  int line = input.line;
  while (at > input.base && *at != '<') {
    --at;
    if (*at == '\n') --line;
  }
  return line;
}

/// Keeps the line of an element with it: libxml2 knows that of the tag's end only, up to 65535.
void StartElement(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                  int namespaceCount, const xmlChar** namespaces, int attributeCount,
                  int defaultedCount, const xmlChar** attributes) {
  xmlSAX2StartElementNs(context, name, prefix, uri, namespaceCount, namespaces, attributeCount,
                        defaultedCount, attributes);
  const auto* parser = static_cast<xmlParserCtxt*>(context);
  if (parser->node && parser->input) SetLine(parser->node, LineOfTag(*parser->input));
}

/// A text that is in memory as one piece passes libxml2's limit, where that of a file would not.
void AddText(void* context, const xmlChar* text, int length) {
  auto* parser = static_cast<xmlParserCtxt*>(context);
  XmlProblem& problem = ReadingOf(*parser).problem;
  if (length > XML_MAX_TEXT_LENGTH && !problem.isLimit) {
    problem = {parser->input->line, kTooLong, true};
  }
  xmlSAX2Characters(context, text, length);
}

/// Parses; gives null, with a problem, for text that is not well-formed or beyond a limit.
DocumentPtr Parse(const Input& input, int options, XmlProblem& problem) {
  const std::unique_ptr<xmlParserCtxt, DeleteContext> context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  Reading reading{input.text, {}};
  context->_private = &reading;
  // Here and below, the error is constant from libxml2 2.12 on.
  context->sax->serror = [](void* parser, auto* error) {
    KeepFirst(*static_cast<xmlParserCtxt*>(parser), *error);
  };
  context->sax->startElementNs = StartElement;
  context->sax->characters = AddText;
  context->sax->ignorableWhitespace = AddText;
  DocumentPtr document(xmlCtxtReadMemory(context.get(), input.text.data(),
                                         static_cast<int>(input.text.size()), nullptr, nullptr,
                                         options | XML_PARSE_NONET | XML_PARSE_BIG_LINES));
  if (document && !reading.problem.isLimit) return document;
  problem = reading.problem;
  if (problem.message.empty()) problem = {0, "it is not XML", false};
  return nullptr;
}

bool DeclaresEntities(const xmlDoc* document) {
  return document->intSubset && document->intSubset->entities;
}

}  // namespace

XmlInput::XmlInput(const Input& input) {
  const NoOtherFiles guarded;
  m_document = Parse(input, 0, m_problem);
  if (!m_document || !DeclaresEntities(m_document.get())) return;
  // Entities that multiply are found where they are put in; this tree of theirs is thrown away.
  if (!Parse(input, XML_PARSE_NOENT, m_problem)) m_document.reset();
}

void XmlInput::RequireDocument(const Input& input) const {
  if (m_document) return;
  const std::string line = m_problem.line > 0 ? ":" + std::to_string(m_problem.line) : "";
  const std::string place = input.name + line + ": ";
  if (m_problem.isLimit) throw Failure(place + "cannot be used: " + m_problem.message);
  throw Failure(place + "is not well-formed XML: " + m_problem.message + "; correct it");
}

void PrepareXml() {
  xmlSetStructuredErrorFunc(nullptr, [](void* /*context*/, auto* /*error*/) {});
}

}  // namespace settingsctl

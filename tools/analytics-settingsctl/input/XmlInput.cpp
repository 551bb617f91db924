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

/// A limit of libxml2, which knows it by no code: part of its message, and what to tell instead.
struct Limit {
  const char* part;
  const char* message;
};

constexpr const char* kTooLong =
    "a text, an attribute, a comment or a section is longer than 10 MB; shorten it";

constexpr Limit kLimits[] = {
    {"Excessive depth", "elements lie more than 256 deep in each other; nest them less deeply"},
    {"huge text node", kTooLong},
    {"too big found", kTooLong},
    {"value too long", kTooLong},
    {"Value length too long", kTooLong},
    {"Huge input lookup", kTooLong},
    {"Name too long", "a name is longer than 50000 bytes; shorten it"},
    {"entity reference loop",
     "entities lead back to themselves or multiply beyond measure; write out what they stand for"}};

XmlProblem ProblemOf(const xmlError& error) {
  const std::string message = OneLine(error.message);
  for (const Limit& limit : kLimits) {
    if (message.find(limit.part) != std::string::npos) return {error.line, limit.message, true};
  }
  return {error.line, message, false};
}

/// Errors of namespaces leave a document to the library.
bool IsRemark(const xmlError& error) {
  return error.level < XML_ERR_ERROR || error.domain == XML_FROM_NAMESPACE;
}

/// Keeps what was complained about first, because what follows is mostly its consequence. At a
/// limit, libxml2 may leave out the rest of the document without calling it a failure.
void KeepFirst(void* context, xmlErrorPtr error) {
  XmlProblem& problem = *static_cast<XmlProblem*>(static_cast<xmlParserCtxt*>(context)->_private);
  if (IsRemark(*error)) return;
  const XmlProblem found = ProblemOf(*error);
  if (problem.message.empty() || (found.isLimit && !problem.isLimit)) problem = found;
}

void Discard(void* /*context*/, xmlErrorPtr /*error*/) {}

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
  XmlProblem& problem = *static_cast<XmlProblem*>(parser->_private);
  if (length > XML_MAX_TEXT_LENGTH && !problem.isLimit) {
    problem = {parser->input->line, kTooLong, true};
  }
  xmlSAX2Characters(context, text, length);
}

/// Parses; gives null, with a problem, for text that is not well-formed or beyond a limit.
DocumentPtr Parse(const Input& input, int options, XmlProblem& problem) {
  const std::unique_ptr<xmlParserCtxt, DeleteContext> context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  XmlProblem found;
  context->_private = &found;
  context->sax->serror = KeepFirst;
  context->sax->startElementNs = StartElement;
  context->sax->characters = AddText;
  context->sax->ignorableWhitespace = AddText;
  DocumentPtr document(xmlCtxtReadMemory(context.get(), input.text.data(),
                                         static_cast<int>(input.text.size()), nullptr, nullptr,
                                         options | XML_PARSE_NONET | XML_PARSE_BIG_LINES));
  if (document && !found.isLimit) return document;
  if (found.message.empty()) found = {0, "it is not XML", false};
  problem = found;
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
  xmlSetStructuredErrorFunc(nullptr, Discard);
  xmlLineNumbersDefault(1);
}

}  // namespace settingsctl

#include "input/XmlInput.h"

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
  for (char& letter : line) {
    if (letter == '\n') letter = ' ';
  }
  return line;
}

/// Keeps what was complained about first, because what follows is mostly its consequence.
void KeepFirst(void* context, xmlErrorPtr error) {
  XmlProblem& problem = *static_cast<XmlProblem*>(static_cast<xmlParserCtxt*>(context)->_private);
  if (!problem.message.empty() || error->level < XML_ERR_ERROR) return;
  problem.line = error->line;
  problem.message = OneLine(error->message);
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

/// Parses; gives null, with a problem, for text that is not well-formed.
xmlDoc* Parse(const Input& input, int options, XmlProblem& problem) {
  const std::unique_ptr<xmlParserCtxt, DeleteContext> context(xmlNewParserCtxt());
  if (!context) throw std::bad_alloc();
  context->_private = &problem;
  context->sax->serror = KeepFirst;
  context->sax->startElementNs = StartElement;
  xmlDoc* const document =
      xmlCtxtReadMemory(context.get(), input.text.data(), static_cast<int>(input.text.size()),
                        nullptr, nullptr, options | XML_PARSE_NONET | XML_PARSE_BIG_LINES);
  if (document) return document;
  if (problem.message.empty()) problem = {0, "it is not XML"};
  return nullptr;
}

bool DeclaresEntities(const xmlDoc* document) {
  return document->intSubset && document->intSubset->entities;
}

}  // namespace

XmlInput::XmlInput(const Input& input) {
  const NoOtherFiles guarded;
  XmlProblem remark;  // an error of namespaces, which leaves a document, is not a problem
  m_document.reset(Parse(input, 0, remark));
  if (!m_document) {
    m_problem = remark;
    return;
  }
  if (!DeclaresEntities(m_document.get())) return;
  // Entities that multiply are found where they are put in; this tree of theirs is thrown away.
  XmlProblem growth;
  const std::unique_ptr<xmlDoc, Delete> substituted(Parse(input, XML_PARSE_NOENT, growth));
  if (substituted) return;
  m_problem = growth;
  m_document.reset();
}

void XmlInput::RequireDocument(const Input& input) const {
  if (m_document) return;
  const std::string line = m_problem.line > 0 ? ":" + std::to_string(m_problem.line) : "";
  throw Failure(input.name + line + ": is not well-formed XML: " + m_problem.message);
}

void PrepareXml() {
  xmlSetStructuredErrorFunc(nullptr, Discard);
  xmlLineNumbersDefault(1);
}

}  // namespace settingsctl

#pragma once

#include <memory>
#include <string>

#include <libxml/tree.h>

#include "input/Input.h"
#include "input/LineNumbers.h"

namespace settingsctl {

/// Where and why a text is not well-formed XML.
struct XmlProblem {
  int line = 0;          ///< 0 where no line is known
  std::string message;   ///< one line without a full stop; empty where there is no problem
  bool isLimit = false;  ///< it is more than libxml2 reads, and the message says what to do
};

/// Frees a tree.
struct DeleteDocument {
  void operator()(xmlDoc* document) const noexcept { xmlFreeDoc(document); }
};

using DocumentPtr = std::unique_ptr<xmlDoc, DeleteDocument>;

/// The tree of an input, for what the library cannot know: lines (`LineOf`) and structure.
///
/// The text is parsed without network, external files and substituted entities, and is refused
/// where entities would make it grow beyond measure or it is deeper or longer than libxml2 reads.
/// libxml2 writes nothing to standard error.
class XmlInput {
 public:
  /// Parses; what is not well-formed leaves a problem and no document.
  explicit XmlInput(const Input& input);

  /// The tree; null where there is a problem. Lives as long as this object.
  xmlDoc* Document() const { return m_document.get(); }

  /// What libxml2 complained about first; its message is empty if there is a document.
  const XmlProblem& Problem() const { return m_problem; }

  /// Throws `Failure` if there is a problem, for commands that cannot go on without a document.
  void RequireDocument(const Input& input) const;

 private:
  DocumentPtr m_document;
  XmlProblem m_problem;
};

/// For as long as the process runs, and in the library's own parses and queries too: libxml2 writes
/// nothing to standard error.
void PrepareXml();

}  // namespace settingsctl

#pragma once

#include <string>
#include <vector>

#include <analytics/Export.h>

namespace analytics {

class DocumentNode;

namespace types {
struct Point;
}  // namespace types

/// An XML document that answers XPath 1.0 queries.
///
/// A document is closed (after construction, `Close()` or a parse that failed) or open. Queries
/// take a context node from which relative paths start; null means the root element.
///
/// Ownership: the document owns its tree. Every `DocumentNode*` handed out is a new object that the
/// caller deletes; deleting it never changes the tree. It dangles once the document is closed,
/// parsed again or destroyed. Texts and lists are copies.
///
/// Errors: nothing here throws on bad input. What cannot be read or evaluated, a closed document
/// included, gives null, an empty list, an empty text or the caller's default; libxml2 writes its
/// own report of a parse or expression error to standard error. Only `std::bad_alloc` gets out.
///
/// Queries: no namespace prefix is bound, so a path with a prefix selects nothing; a derived
/// document binds prefixes by overriding `CreateSearchContext()`. An expression that gives a
/// number, a text or a truth value instead of nodes selects nothing. Values put into a path are not
/// escaped, and a path ends at its first NUL. A namespace node counts as a node, but is handed out
/// as an empty node and read as empty text, because it lives no longer than its query.
///
/// Numbers are converted as `DocumentNode` describes.
///
/// Threads: one document is used by one thread at a time, queries included. Different documents are
/// independent, but for `DumpToString()`.
class ANALYTICS_API Document {
 public:
  /// Makes a closed document.
  Document();

  /// Closes the document.
  virtual ~Document();

  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  /// Reads a file.
  ///
  /// The former document is closed first, so a failed parse leaves none. On success the search
  /// context is made with `CreateSearchContext()`, whose own failure is not reported: queries then
  /// select nothing.
  ///
  /// @param path  a file, or whatever else libxml2 opens: "-" is standard input
  /// @return whether the file could be read and is well-formed
  bool ParseFile(const std::string& path);

  /// Reads XML text; else as `ParseFile`. All bytes count, also behind a NUL.
  bool ParseString(const std::string& text);

  /// Reads XML text from a buffer; else as `ParseFile`.
  ///
  /// @param text    the first byte; not kept
  /// @param length  number of bytes; 0 or more than `INT_MAX` is refused and leaves the document
  ///                closed
  bool ParseString(const char* text, unsigned long length);

  /// Frees the tree and the search context; any number of times.
  void Close();

  /// The root element.
  ///
  /// @return a new node that the caller deletes, empty if the root was deleted; null if the
  ///         document is closed
  DocumentNode* SelectRootNode();

  /// The first node, in document order, that `path` selects.
  ///
  /// @return a new node that the caller deletes; null if nothing is selected
  DocumentNode* SelectNode(const std::string& path, DocumentNode* context = nullptr);

  /// All nodes that `path` selects, in document order.
  ///
  /// @return new nodes, each of which the caller deletes
  std::vector<DocumentNode*> SelectNodes(const std::string& path, DocumentNode* context = nullptr);

  /// Text of the first node that `path` selects, see `DocumentNode::GetValue()`; empty if nothing
  /// is selected. A text node selected as such has no children, so "text()" reads as empty.
  std::string GetSingleValue(const std::string& path, DocumentNode* context);

  /// Texts of all nodes that `path` selects, in document order. Nodes with empty text are skipped,
  /// so the list can be shorter than the selection.
  std::vector<std::string> GetMultipleValues(const std::string& path,
                                             DocumentNode* context = nullptr);

  /// Text of the first node that `path` selects, as an integer.
  ///
  /// @param defaultValue  the answer if nothing is selected or the text is empty or blank
  int GetSingleValue(const std::string& path, int defaultValue, DocumentNode* context);

  /// Text of the first node that `path` selects, as a floating number of single precision.
  ///
  /// @param defaultValue  the answer if nothing is selected or the text is empty or blank; rounded
  ///                      to single precision too, so 0.1 comes back as 0.10000000149011612
  double GetNumericValue(const std::string& path, double defaultValue,
                         DocumentNode* context = nullptr);

  /// Takes all nodes that `path` selects out of the tree and frees them.
  ///
  /// Nodes that refer to what was freed dangle. The document node itself is never freed.
  ///
  /// @return how many nodes were selected and freed
  int DeleteNodes(const std::string& path, DocumentNode* context = nullptr);

  /// The whole document as indented XML text, in the document's own encoding and up to the first
  /// NUL: text in an encoding with NUL bytes, such as UTF-16, is cut there.
  ///
  /// Switches libxml2's `xmlIndentTreeOutput` for the time of the call, so nothing else in the
  /// process may write XML meanwhile.
  ///
  /// @return the text; empty if the document is closed
  std::string DumpToString();

  /// Writes the document to a file, indented.
  ///
  /// libxml2 takes the path for a URI: "a%20b.xml" writes "a b.xml", which `ParseFile` finds under
  /// either name.
  ///
  /// @return false for an empty path or a closed document; else true, even when the write failed: a
  ///         runtime goes on without its copy. Whoever needs the copy reads it back.
  bool SaveToFile(const std::string& path);

  /// The namespace that `prefix` stands for at the root element.
  ///
  /// If there is none, "**** Didn't find the %s name space with the root node\n" is printed to
  /// standard output. An empty prefix does not ask for the default namespace.
  ///
  /// @return an `xmlNs*` of libxml2, owned by the document; null if there is none or the document
  ///         is closed
  void* GetNs(const std::string& prefix);

  /// The namespace that `prefix` stands for at `node`; else as the form for the root element, with
  /// "**** Didn't find the %s name space with the given node\n". A null node gives null and prints
  /// nothing.
  void* GetNs(const std::string& prefix, DocumentNode* node);

  /// Reads a point, in pixels of the image, from child elements of `node`.
  ///
  /// x is the text of the child element "x". y keeps the caller's value: plain documents carry no y
  /// coordinate of their own, and callers rely on the one they passed in. libxml2 reports an
  /// invalid expression to standard error each time. `ProfileDoc` reads both from attributes.
  ///
  /// @param point  x keeps its value if there is no such child
  /// @return false, with the point unchanged, only if `node` is null
  virtual bool PointFromNode(DocumentNode* node, types::Point& point);

  /// Makes the search context that queries are evaluated in, replacing a former one; called after
  /// every successful parse.
  ///
  /// @return whether there is a search context now
  virtual bool CreateSearchContext();

 protected:
  class DocumentImpl;
  DocumentImpl* m_impl;  // owned; never null
};

}  // namespace analytics

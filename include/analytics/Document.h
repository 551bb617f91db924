// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
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
/// Errors: what cannot be read or evaluated, a closed document included, gives null, an empty list,
/// an empty text or the caller's default; libxml2 reports a parse or expression error to standard
/// error. What libxml2 has no memory for counts as absent: a file can be parsed with success and
/// texts be empty. Only `std::bad_alloc` and what the global locale throws while a number is read
/// get out.
///
/// Trust: entities multiply when a text is read; with libxml2 2.9.14 a file of 22 KB made
/// `GetSingleValue()` answer with 40 MB after 11 s. `ParseFile()` and `SaveToFile()` may reach
/// beyond files, see there. So parse only what is trusted, and prefer a libxml2 built without
/// network: `analytics-settingsctl check` finds mistakes, not malice. Entities and type
/// declarations in other files are not read, unless the program has libxml2 do so.
///
/// Queries: of namespace prefixes only "xml" is bound, so a path that uses another selects nothing;
/// a derived document binds prefixes by overriding `CreateSearchContext()`. An expression that
/// gives a number, a text or a truth value instead of nodes selects nothing. A value put into a
/// path becomes part of the expression, which may then select, or delete, anything: refuse values
/// that `text::IsQueryType()` (for double quotes) or `text::IsQueryItemName()` (for single quotes)
/// of Text.h refuses. A path ends at its first NUL. A namespace node counts as a node, but is
/// handed out as an empty node and read as empty text, because it lives no longer than its query.
///
/// Texts and numbers are as `DocumentNode` describes.
///
/// Threads: one document is used by one thread at a time, queries included. Different documents are
/// independent once one thread has parsed something, but for `DumpToString()`; profiles also read
/// the settings, see `ProfileDoc`.
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
  /// The previous document is closed first, so a failed parse leaves none. On success the search
  /// context is made with `CreateSearchContext()`, whose own failure is not reported: queries then
  /// select nothing.
  ///
  /// @param path  a file, or what else libxml2 opens: "-" is standard input; depending on its
  ///              version and build "http:" and "ftp:" addresses, compressed files (a few KB can
  ///              unpack to hundreds of MB) and names that a catalog maps
  /// @return whether the file could be read and is well-formed
  bool ParseFile(const std::string& path);

  /// Reads XML text; else as `ParseFile`. All bytes count, also after a NUL.
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
  /// is selected. Entities are those of this document, also for a node of another one: what it
  /// declares and never refers to may then be empty (libxml2 2.15 takes those of the node's own). A
  /// text node selected as such has no children, so "text()" reads as empty.
  ///
  /// @param context  has no default, so that 0 or `NULL` in its place is no integer's default
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
  ///                      to single precision too: 0.1 comes back as 0.10000000149011612, 1e300
  ///                      as infinity
  double GetNumericValue(const std::string& path, double defaultValue,
                         DocumentNode* context = nullptr);

  /// Takes all nodes that `path` selects out of the tree and frees them.
  ///
  /// Handles to what was freed dangle. The document node itself is never freed.
  ///
  /// @return how many nodes were freed; a namespace node counts, though its declaration stays
  int DeleteNodes(const std::string& path, DocumentNode* context = nullptr);

  /// The whole document as XML text, up to the first NUL, which cuts an encoding with NUL bytes
  /// such as UTF-16.
  ///
  /// The encoding is the one that the document declares; without one it is UTF-8, in which texts
  /// and attribute values have references for all characters beyond ASCII. Elements without text of
  /// their own are indented by two blanks a level: parsed again, those blanks are their text.
  ///
  /// Switches libxml2's `xmlIndentTreeOutput` for the time of the call, so nothing else in the
  /// process may write XML meanwhile.
  ///
  /// @return the text; empty if the document is closed
  std::string DumpToString();

  /// Writes the document to a file, as `DumpToString()` gives it but whole, and indented only as
  /// libxml2's `xmlIndentTreeOutput` says. "-" is standard output, and libxml2 may send the
  /// document to an "http:" address.
  ///
  /// libxml2 takes the path for a URI: "a%20b.xml" writes "a b.xml", and "%00" ends the name.
  /// `ParseFile` finds that file under either name with libxml2 2.9.14, unless there is one of just
  /// the given name; libxml2 2.15 takes names to read as they are.
  ///
  /// @return false for an empty path or a closed document; else true, even when the write failed:
  ///         whoever needs the copy reads it back
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

  /// Reads a point, in whatever unit the document uses, from child elements of `node`.
  ///
  /// x is the text of the child element "x". y keeps the caller's value whatever the document
  /// holds, and libxml2 reports an invalid expression to standard error: kept for compatibility,
  /// installed runtimes see it. `ProfileDoc` reads both from attributes.
  ///
  /// @param point  x keeps its value if there is no such child, or it is empty or blank
  /// @return false, with the point unchanged, only if `node` is null
  virtual bool PointFromNode(DocumentNode* node, types::Point& point);

  /// Makes the search context that queries are evaluated in, replacing a previous one; called after
  /// every successful parse.
  ///
  /// @return whether there is a search context now; none is made for a closed document
  virtual bool CreateSearchContext();

 protected:
  class DocumentImpl;
  DocumentImpl* m_impl;  ///< owned; never null
};

}  // namespace analytics

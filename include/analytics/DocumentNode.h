// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <analytics/Export.h>

namespace analytics {

/// A handle to one node of an XML tree that an `analytics::Document` holds.
///
/// Ownership: the handle owns nothing. Copies refer to the same node, and destroying a handle never
/// changes the tree. The node belongs to its document: a handle dangles once its document is
/// closed, parsed again or destroyed, or once its node is freed, alone or with one above it. A
/// handle whose pointer is null is an empty node.
///
/// Errors: what is absent gives an empty text, the caller's default, null or no effect. An edit
/// that libxml2 has no memory for may be done in part. Only `std::bad_alloc` and what the global
/// locale throws while a number is read get out.
///
/// Threads: a handle is used by the thread that uses its document.
///
/// Texts: names and texts are UTF-8 in whatever encoding the document is saved, end at their first
/// NUL and are not checked. `Document::SaveToFile()` answers true for what does not come back: an
/// invalid name ("bad name<", or one that starts with a NUL) gives a document that does not parse
/// again, as may a text of more than 10,000,000 bytes or more than 256 levels of elements. So does
/// a text that is not UTF-8 ("\xff") or holds a character that XML forbids ("\x01"), unless it is
/// changed, cut or lost: see `text::IsXmlText()` of Text.h.
///
/// Numbers are read with the standard streams under the global locale, groups of digits included.
/// Integers are written in plain decimal, whatever the locale.
///
/// | Text                              | Answer                                |
/// |-----------------------------------|---------------------------------------|
/// | empty, or only white space        | the caller's default                  |
/// | a number, also after white space  | the number; what follows is ignored   |
/// | no leading number ("abc")         | 0                                     |
/// | hexadecimal ("0x1F")              | 0: only the leading "0" is read       |
/// | an integer out of range           | the least or greatest `int`           |
/// | a floating number out of range    | the greatest finite value, signed     |
/// | an unfinished exponent ("2em")    | 0; an integer is 2                    |
class ANALYTICS_API DocumentNode {
 public:
  /// Makes an empty node.
  DocumentNode();

  /// Refers to a node of libxml2.
  ///
  /// @param node  an `xmlNode*`, or null for an empty node; not owned
  explicit DocumentNode(void* node);

  /// Forgets the node and leaves the tree as it is.
  ~DocumentNode();

  /// Refers to the same node.
  DocumentNode(const DocumentNode&) = default;

  /// Refers to the same node; the previous one stays as it is.
  DocumentNode& operator=(const DocumentNode&) = default;

  /// The `xmlNode*` of libxml2, null for an empty node; owned by the document.
  void* Handle();

  /// Refers to another node; the previous one is neither unlinked nor freed.
  void Handle(void* node);

  /// The text of the node: its own text children one after the other, entity references
  /// substituted as its document declares them. Text inside child elements does not count; for an
  /// attribute it is the value.
  ///
  /// @return the text; empty for an empty node
  std::string GetValue();

  /// Replaces all children, elements too, by a text; handles to them dangle. An empty text leaves
  /// no children.
  ///
  /// The document node takes none. A text node, a comment and an instruction take the text as it
  /// is; "-->" in a comment and "?>" in an instruction end it in a saved document, where the rest
  /// becomes markup. Elements and attributes have libxml2 interpret references in it:
  ///
  /// | Given                      | The element's text                                 |
  /// |----------------------------|----------------------------------------------------|
  /// | "AT&amp;T", "AT&#38;T"     | "AT&T"                                             |
  /// | "<b>", "]]>"               | the same                                           |
  /// | "AT&T", "a & b"            | empty (libxml2 2.9.14), or "ATT", "a  b" (2.15)    |
  /// | "x&y;z", no entity "y"     | "xz"; the saved document does not parse again      |
  /// | "&e;", "e" holding "&e;"   | reading it ends the process with libxml2 2.9.14    |
  ///
  /// @param value  for a text from outside: what `text::ElementText()` of Text.h makes of it
  void SetValue(const std::string& value);

  /// Value of an attribute: of the first one of this local name, in whatever namespace, or else the
  /// default in the document's own type declaration.
  ///
  /// @return the value; empty if there is none, the node is empty or `name` is empty
  std::string GetProperty(const std::string& name);

  /// Sets or replaces an attribute; an empty value keeps the attribute with an empty value.
  /// Nothing happens on an empty node, on one that is no element and for an empty name.
  ///
  /// @param name   with a prefix that is declared here ("p:x"), the attribute x of that namespace;
  ///               else the name as it is, in no namespace
  /// @param value  taken as it is, unlike `SetValue`: "AT&T" comes back
  void SetProperty(const std::string& name, const std::string& value);

  /// Appends a new element as the last child, in the namespace of its parent.
  ///
  /// @param name   an element name without prefix; if empty, nothing is appended
  /// @param value  the element's text, interpreted as by `SetValue`
  /// @return a new handle that the caller deletes, empty if nothing is appended, as to a node that
  ///         is no element; null if this node is empty. The document node takes a further root
  ///         element, with which the document does not parse again.
  DocumentNode* AddNewChild(const std::string& name, const std::string& value);

  /// Appends an existing node as the last child; the node belongs to this tree from then on.
  ///
  /// This node must be an element: children of another one may get lost when they are saved. A node
  /// that is linked elsewhere is moved, one that is already a child here keeps its place. Its
  /// namespaces stay those of its previous place: call `ReconciliateNs()` on it before the element
  /// or the document that declares them is freed. Nothing happens if either node is empty, if
  /// `child` is null or a document node, or if this node lies inside `child`. An attribute replaces
  /// the one of its name, which is freed. Text that follows text is merged into it and freed:
  /// `child` then dangles.
  void AddChild(DocumentNode* child);

  /// Detaches the node and its subtree from the tree.
  ///
  /// @param free  true: the subtree is freed and this handle becomes empty.
  ///              false: the subtree is the caller's, to be put back with `AddChild` or released
  ///              with `Unlink(true)` before its document is closed, parsed again or destroyed.
  ///
  /// Nothing happens on an empty node. The document node itself is never freed.
  void Unlink(bool free);

  /// The node and its subtree as XML text, exactly as the tree holds it: no indentation added.
  ///
  /// @return the text; empty for an empty node
  std::string DumpToString();

  /// Puts the node into a namespace.
  ///
  /// The root element's own namespace and the declarations after it on the same element are reused
  /// if their URI equals `href` byte for byte, whatever their prefix. Otherwise the namespace is
  /// declared on this node, also when another element already declares it: kept for compatibility,
  /// installed runtimes see it.
  ///
  /// @param href    namespace URI; empty, with an empty prefix too, means none until the saved
  ///                text is parsed under a default namespace. libxml2 2.15 does not find the node
  ///                by its plain name meanwhile.
  /// @param prefix  prefix of a new declaration; empty declares a default namespace. One that this
  ///                node already declares is refused, and so is any on a node that is no element;
  ///                the node is then in no namespace. A saved document may not give back "xml" and
  ///                "xmlns", or a prefix without a URI.
  void SetNs(const std::string& href, const std::string& prefix);

  /// Declares within this subtree each namespace it uses that is not declared in or above it.
  void ReconciliateNs();

  /// The node's text as an integer.
  ///
  /// @param defaultValue  the answer for an empty node and for empty or blank text
  int GetValue(int defaultValue);

  /// Replaces all children by an integer in decimal.
  void SetValue(int value);

  /// An attribute as an integer.
  ///
  /// @param defaultValue  the answer if the attribute is absent, empty or blank, the node is empty
  ///                      or `name` is empty
  int GetProperty(const std::string& name, int defaultValue);

  /// Sets or replaces an attribute by an integer in decimal. Nothing happens on an empty node or
  /// for an empty name.
  void SetProperty(const std::string& name, int value);

  /// An attribute as a floating number of double precision.
  ///
  /// @param defaultValue  the answer if the attribute is absent, empty or blank, the node is empty
  ///                      or `name` is empty
  double GetNumericProperty(const std::string& name, double defaultValue);

  /// Appends a new element whose text is an integer in decimal; else as the form with text.
  DocumentNode* AddNewChild(const std::string& name, int value);

 private:
  void* m_handle;  // an xmlNode; may be null; not owned
};

}  // namespace analytics

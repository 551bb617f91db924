#pragma once

#include <string>

#include <analytics/Export.h>

namespace analytics {

/// A handle to one node of an XML tree that an `analytics::Document` holds.
///
/// Ownership: the handle owns nothing. Copies refer to the same node, and destroying a handle never
/// changes the tree. The node belongs to its document: a handle dangles once its document is
/// closed, parsed again or destroyed, or once the node is deleted from the tree. A handle whose
/// pointer is null is an empty node.
///
/// Errors: nothing here throws on bad input. What is absent gives an empty text, the caller's
/// default, null or no effect; only `std::bad_alloc` gets out.
///
/// Threads: a handle is used by the thread that uses its document.
///
/// Numbers are read with the standard streams under the global locale:
///
/// | Text                              | Answer                                |
/// |-----------------------------------|---------------------------------------|
/// | empty, or only white space        | the caller's default                  |
/// | a number, also after white space  | the number; what follows is ignored   |
/// | no leading number ("abc")         | 0                                     |
/// | hexadecimal ("0x1F")              | 0: only the leading "0" is read       |
/// | an integer out of range           | the least or greatest `int`           |
/// | a floating number out of range    | the greatest finite value, signed     |
///
/// A locale that groups digits accepts groups in what is read. Integers are written in plain
/// decimal whatever the locale. A floating number whose exponent stays unfinished ("2em") has no
/// leading number: the answer is 0.
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

  DocumentNode(const DocumentNode&) = default;
  DocumentNode& operator=(const DocumentNode&) = default;

  /// The `xmlNode*` of libxml2, null for an empty node; owned by the document.
  void* Handle();

  /// Refers to another node; the former one is neither unlinked nor freed.
  void Handle(void* node);

  /// The text of the node: its own text children one after the other, entity references
  /// substituted. Text inside child elements does not count; for an attribute it is the value.
  ///
  /// @return the text; empty for an empty node
  std::string GetValue();

  /// Replaces all children, elements too, by a text; an empty text leaves no children.
  ///
  /// @param value  taken unescaped: libxml2 interprets entity and character references in it, so
  ///               a plain "&" is written as "&amp;"
  void SetValue(const std::string& value);

  /// Value of an attribute.
  ///
  /// @return the value; empty if the attribute is absent, the node is empty or `name` is empty
  std::string GetProperty(const std::string& name);

  /// Sets or replaces an attribute; an empty value keeps the attribute with an empty value.
  /// Nothing happens on an empty node or for an empty name.
  void SetProperty(const std::string& name, const std::string& value);

  /// Appends a new element as the last child, in the namespace of its parent.
  ///
  /// @param name   an element name; if empty, nothing is appended and the answer is an empty node
  /// @param value  the element's text, taken unescaped as in `SetValue`
  /// @return a new handle that the caller deletes; null if this node is empty
  DocumentNode* AddNewChild(const std::string& name, const std::string& value);

  /// Appends an existing node as the last child; the node belongs to this tree from then on.
  ///
  /// A node that is linked elsewhere is moved, one that is already a child here keeps its place.
  /// Its namespaces stay those of its former place: call `ReconciliateNs()` on it before the
  /// element or the document that declares them is freed. Nothing happens if either node is empty,
  /// if `child` is null or a document node, or if this node lies inside `child`. Text that follows
  /// text is merged into it and freed: `child` then dangles.
  void AddChild(DocumentNode* child);

  /// Detaches the node and its subtree from the tree.
  ///
  /// @param free  true: the subtree is freed and this handle becomes empty.
  ///              false: the subtree is the caller's, to be put back with `AddChild` or released
  ///              with `Unlink(true)`, else it leaks.
  ///
  /// Nothing happens on an empty node. The document node itself is never freed.
  void Unlink(bool free);

  /// The node and its subtree as XML text, exactly as the tree holds it: no indentation added.
  ///
  /// @return the text; empty for an empty node
  std::string DumpToString();

  /// Puts the node into a namespace.
  ///
  /// The root element's own namespace and the declarations behind it on the same element are
  /// reused if their URI equals `href` byte for byte, whatever their prefix. Otherwise the
  /// namespace is declared on this node, also when another element already declares it: so a node
  /// never depends on an element that it may be moved away from.
  ///
  /// @param href    namespace URI; empty declares none
  /// @param prefix  prefix of a new declaration; empty declares a default namespace. A prefix that
  ///                this node already declares is refused and leaves the node in no namespace.
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

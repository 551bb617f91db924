#include "fuzz/NodePairs.h"

#include <algorithm>
#include <memory>

#include "fuzz/Check.h"
#include "fuzz/Selected.h"
#include "fuzz/Tree.h"

namespace fuzz {
namespace {

xmlNode* NodeOf(xmlAttr* attribute) { return reinterpret_cast<xmlNode*>(attribute); }
xmlNode* NodeOf(xmlDoc* document) { return reinterpret_cast<xmlNode*>(document); }

bool IsElement(const xmlNode* node) { return node->type == XML_ELEMENT_NODE; }

xmlDoc* TreeOf(analytics::Document& document) {
  const std::unique_ptr<DocumentNode> root(document.SelectRootNode());
  return static_cast<xmlNode*>(root->Handle())->doc;
}

bool AreSame(const xmlNs* one, const xmlNs* other) {
  if (!one || !other) return !one && !other;
  return xmlStrEqual(one->href, other->href) && xmlStrEqual(one->prefix, other->prefix);
}

void CompareDeclarations(const xmlNs* one, const xmlNs* other) {
  for (; one && other; one = one->next, other = other->next)
    Require(AreSame(one, other), "a declaration of a namespace");
  Require(!one && !other, "how many namespaces are declared");
}

void CompareTrees(const xmlNode* one, const xmlNode* other);

template <typename Node>
void CompareLists(const Node* one, const Node* other) {
  for (; one && other; one = one->next, other = other->next)
    CompareTrees(reinterpret_cast<const xmlNode*>(one), reinterpret_cast<const xmlNode*>(other));
  Require(!one && !other, "how many nodes there are");
}

void CompareTrees(const xmlNode* one, const xmlNode* other) {
  Require(one->type == other->type, "the type of a node");
  CompareLists(one->children, other->children);
  if (one->type == XML_DOCUMENT_NODE) return;
  Require(xmlStrEqual(one->name, other->name), "the name of a node");
  if (!IsElement(one) && one->type != XML_ATTRIBUTE_NODE)
    return Require(xmlStrEqual(one->content, other->content), "the content of a node");
  Require(AreSame(one->ns, other->ns), "the namespace of a node");
  if (!IsElement(one)) return;
  CompareDeclarations(one->nsDef, other->nsDef);
  CompareLists(one->properties, other->properties);
}

bool Declares(const std::vector<xmlNode*>& nodes, const xmlNs* ns) {
  const auto declaresIt = [ns](const xmlNode* node) {
    const xmlNs* declared = IsElement(node) ? node->nsDef : nullptr;
    while (declared && declared != ns) declared = declared->next;
    return declared != nullptr;
  };
  for (xmlNode* const top : nodes) {
    for (xmlNode* node = top; node; node = NextInOrder(node, top)) {
      if (declaresIt(node)) return true;
    }
  }
  return false;
}

/// The namespace records that a node itself is in.
std::vector<const xmlNs*> NamespacesOf(const xmlNode* node) {
  std::vector<const xmlNs*> used;
  if (!IsElement(node) && node->type != XML_ATTRIBUTE_NODE) return used;
  if (node->ns) used.push_back(node->ns);
  if (!IsElement(node)) return used;
  for (const xmlAttr* attribute = node->properties; attribute; attribute = attribute->next) {
    if (attribute->ns) used.push_back(attribute->ns);
  }
  return used;
}

bool UsesAny(xmlNode* top, const std::vector<xmlNode*>& declaring) {
  for (xmlNode* node = top; node; node = NextInOrder(node, top)) {
    if (LiesWithin(node, declaring)) continue;
    for (const xmlNs* const ns : NamespacesOf(node)) {
      if (Declares(declaring, ns)) return true;
    }
  }
  return false;
}

std::vector<xmlNode*> ListOf(xmlNode* first) {
  std::vector<xmlNode*> nodes;
  for (; first; first = first->next) nodes.push_back(first);
  return nodes;
}

void Drop(std::vector<Pair>& pairs, const std::vector<xmlNode*>& others) {
  const auto isWithin = [&](const Pair& pair) { return LiesWithin(pair.other, others); };
  pairs.erase(std::remove_if(pairs.begin(), pairs.end(), isWithin), pairs.end());
}

}  // namespace

NodePairs::NodePairs(analytics::Document& document, xmlDoc* other)
    : m_top{NodeOf(TreeOf(document)), NodeOf(other)} {
  AddTree(m_top.node, m_top.other);
}

NodePairs::~NodePairs() {
  for (const Pair& pair : m_detached) {
    DocumentNode(pair.node).Unlink(true);
    xmlFreeNode(pair.other);
  }
}

void NodePairs::AddTree(xmlNode* node, xmlNode* other) {
  m_pairs.push_back({node, other});
  if (IsElement(node)) {
    xmlAttr* attribute = other->properties;
    for (xmlAttr* one = node->properties; one; one = one->next, attribute = attribute->next)
      m_pairs.push_back({NodeOf(one), NodeOf(attribute)});
  }
  xmlNode* child = other->children;
  for (xmlNode* one = node->children; one; one = one->next, child = child->next)
    AddTree(one, child);
}

Pair NodePairs::Any(Input& input) const { return m_pairs[input.Below(m_pairs.size())]; }

void NodePairs::AddChild(const Pair& parent, const Pair& child) {
  const bool isAttribute = child.other->type == XML_ATTRIBUTE_NODE;
  if (!IsElement(parent.other) && (isAttribute || parent.other != m_top.other)) return;
  DocumentNode added(child.node);
  if (isAttribute) ForgetWhatAttributeReplaces(parent, child);
  DocumentNode(parent.node).AddChild(&added);
  const bool isKept = child.other == m_top.other || child.other->parent == parent.other;
  if (isKept || LiesWithin(parent.other, {child.other})) return;
  xmlUnlinkNode(child.other);
  xmlNode* const result = xmlAddChild(parent.other, child.other);
  Require(result != nullptr, "a child that libxml2 takes");
  const auto isChild = [&](const Pair& pair) { return pair.other == child.other; };
  m_detached.erase(std::remove_if(m_detached.begin(), m_detached.end(), isChild), m_detached.end());
  if (result == child.other) return;  // else the text was merged into the one before
  m_pairs.erase(std::remove_if(m_pairs.begin(), m_pairs.end(), isChild), m_pairs.end());
}

void NodePairs::ForgetWhatAttributeReplaces(const Pair& parent, const Pair& child) {
  if (child.other->parent == parent.other) return;
  const xmlChar* const uri = child.other->ns ? child.other->ns->href : nullptr;
  xmlAttr* const replaced = xmlHasNsProp(parent.other, child.other->name, uri);
  if (replaced) Forget({NodeOf(replaced)});
}

void NodePairs::Unlink(const Pair& pair, bool free) {
  DocumentNode node(pair.node);
  if (pair.other == m_top.other) return node.Unlink(free);
  if (free && MayFree({pair.other})) {
    Forget({pair.other});
    node.Unlink(true);
    Require(!node.Handle(), "the handle of a freed node");
    xmlUnlinkNode(pair.other);
    return xmlFreeNode(pair.other);
  }
  node.Unlink(false);
  if (pair.other->parent) m_detached.push_back(pair);
  xmlUnlinkNode(pair.other);
}

bool NodePairs::MayFree(const std::vector<xmlNode*>& others) const {
  return !UsesAny(m_top.other, others) &&
         std::none_of(m_detached.begin(), m_detached.end(),
                      [&](const Pair& pair) { return UsesAny(pair.other, others); });
}

bool NodePairs::MayLoseChildren(const Pair& pair) const {
  return !IsElement(pair.other) || MayFree(ListOf(pair.other->children));
}

void NodePairs::Forget(const std::vector<xmlNode*>& others) {
  Drop(m_pairs, others);
  Drop(m_detached, others);
}

void NodePairs::ForgetChildren(const Pair& pair) {
  if (IsElement(pair.other)) Forget(ListOf(pair.other->children));
}

void NodePairs::Compare() const {
  CompareTrees(m_top.node, m_top.other);
  for (const Pair& pair : m_detached) CompareTrees(pair.node, pair.other);
}

}  // namespace fuzz

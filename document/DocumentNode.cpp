#include <analytics/DocumentNode.h>

#include "document/NodeRemoval.h"
#include "document/TypedText.h"
#include "document/XmlText.h"

namespace analytics {
namespace {

xmlNodePtr Node(void* handle) { return static_cast<xmlNodePtr>(handle); }

bool LiesWithin(xmlNodePtr subtree, const xmlNode* inner) {
  while (inner && inner != subtree) inner = inner->parent;
  return inner != nullptr;
}

/// The root element's namespace record or one declared behind it, if its URI is `href`.
xmlNsPtr FindRootNs(xmlDocPtr document, const std::string& href) {
  const xmlNodePtr root = xmlDocGetRootElement(document);
  // Deliberate: only from the root's own namespace on, so a node put into any other one declares it
  // again. Kept for compatibility: installed runtimes see it.
  xmlNsPtr ns = root ? root->ns : nullptr;
  while (ns && !xmlStrEqual(ns->href, XmlText(href))) ns = ns->next;
  return ns;
}

}  // namespace

DocumentNode::DocumentNode() : m_handle(nullptr) {}

DocumentNode::DocumentNode(void* node) : m_handle(node) {}

DocumentNode::~DocumentNode() = default;

void* DocumentNode::Handle() { return m_handle; }

void DocumentNode::Handle(void* node) { m_handle = node; }

std::string DocumentNode::GetValue() {
  return m_handle ? NodeText(Node(m_handle)->doc, Node(m_handle)) : std::string();
}

void DocumentNode::SetValue(const std::string& value) {
  xmlNodeSetContent(Node(m_handle), XmlTextOrNull(value));
}

std::string DocumentNode::GetProperty(const std::string& name) {
  if (!m_handle || name.empty()) return std::string();
  return AttributeText(Node(m_handle), name.c_str());
}

void DocumentNode::SetProperty(const std::string& name, const std::string& value) {
  if (!m_handle || name.empty()) return;
  xmlSetProp(Node(m_handle), XmlText(name), XmlTextOrNull(value));
}

DocumentNode* DocumentNode::AddNewChild(const std::string& name, const std::string& value) {
  if (!m_handle) return nullptr;
  auto child = std::make_unique<DocumentNode>();
  child->m_handle = xmlNewChild(Node(m_handle), nullptr, XmlTextOrNull(name), XmlTextOrNull(value));
  return child.release();
}

void DocumentNode::AddChild(DocumentNode* child) {
  if (!m_handle || !child || !child->m_handle) return;
  const xmlNodePtr parent = Node(m_handle);
  const xmlNodePtr node = Node(child->m_handle);
  // libxml2 neither detaches a node that is linked elsewhere nor notices a cycle, and would take a
  // document node, which only its document frees.
  if (node->type == XML_DOCUMENT_NODE || node->parent == parent) return;
  if (LiesWithin(node, parent)) return;
  xmlUnlinkNode(node);
  xmlAddChild(parent, node);
}

void DocumentNode::Unlink(bool free) {
  if (!m_handle) return;
  if (!free) {
    xmlUnlinkNode(Node(m_handle));
    return;
  }
  RemoveNode(Node(m_handle));
  m_handle = nullptr;
}

std::string DocumentNode::DumpToString() {
  const XmlPtr<xmlBuffer> buffer(m_handle ? xmlBufferCreate() : nullptr);
  if (!buffer) return std::string();
  xmlNodeDump(buffer.get(), Node(m_handle)->doc, Node(m_handle), 0, 0);
  return CopyText(xmlBufferContent(buffer.get()));
}

void DocumentNode::SetNs(const std::string& href, const std::string& prefix) {
  if (!m_handle) return;
  const xmlNodePtr node = Node(m_handle);
  xmlNsPtr ns = FindRootNs(node->doc, href);
  if (!ns) ns = xmlNewNs(node, XmlTextOrNull(href), XmlTextOrNull(prefix));
  xmlSetNs(node, ns);
}

void DocumentNode::ReconciliateNs() {
  if (m_handle) xmlReconciliateNs(Node(m_handle)->doc, Node(m_handle));
}

int DocumentNode::GetValue(int defaultValue) { return NumberFromText(GetValue(), defaultValue); }

void DocumentNode::SetValue(int value) { SetValue(TextFromNumber(value)); }

int DocumentNode::GetProperty(const std::string& name, int defaultValue) {
  return NumberFromText(GetProperty(name), defaultValue);
}

void DocumentNode::SetProperty(const std::string& name, int value) {
  SetProperty(name, TextFromNumber(value));
}

double DocumentNode::GetNumericProperty(const std::string& name, double defaultValue) {
  return NumberFromText(GetProperty(name), defaultValue);
}

DocumentNode* DocumentNode::AddNewChild(const std::string& name, int value) {
  return AddNewChild(name, TextFromNumber(value));
}

}  // namespace analytics

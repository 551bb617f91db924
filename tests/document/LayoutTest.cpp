#include <cstddef>
#include <cstring>
#include <type_traits>

#include <gtest/gtest.h>

#include <analytics/Document.h>
#include <analytics/DocumentNode.h>

namespace analytics {
namespace {

// Programs compiled against the headers allocate and derive from these classes, so their layout
// must stay for ever.
static_assert(sizeof(DocumentNode) == sizeof(void*), "a handle is one pointer");
static_assert(!std::is_polymorphic<DocumentNode>::value, "a handle has no virtual table");
static_assert(std::is_copy_constructible<DocumentNode>::value, "handles are copied");
static_assert(std::is_copy_assignable<DocumentNode>::value, "handles are assigned");

static_assert(sizeof(Document) == 2 * sizeof(void*), "virtual table and implementation");
static_assert(std::has_virtual_destructor<Document>::value, "documents are derived from");
static_assert(!std::is_copy_constructible<Document>::value, "a copy would share the tree");
static_assert(!std::is_copy_assignable<Document>::value, "a copy would share the tree");

/// Slot of a virtual operation in the virtual table of its class.
template <typename Operation>
std::size_t SlotOf(Operation operation) {
  static_assert(sizeof operation == 2 * sizeof(std::ptrdiff_t), "as in the Itanium C++ ABI");
  std::ptrdiff_t offset = 0;
  std::memcpy(&offset, &operation, sizeof offset);
  // The lowest bit marks a virtual operation on some machines and is not set on others.
  return static_cast<std::size_t>(offset & ~std::ptrdiff_t{1}) / sizeof(void*);
}

TEST(ADocumentsVirtualTable, HoldsItsOperationsBehindTheTwoDestructors) {
  EXPECT_EQ(2U, SlotOf(&Document::PointFromNode));
  EXPECT_EQ(3U, SlotOf(&Document::CreateSearchContext));
}

TEST(ADocumentNode, HoldsNothingButTheHandle) {
  int anything = 0;
  DocumentNode node(&anything);
  static_assert(std::is_standard_layout<DocumentNode>::value, "read through its first member");
  EXPECT_EQ(&anything, *reinterpret_cast<void**>(&node));
}

}  // namespace
}  // namespace analytics

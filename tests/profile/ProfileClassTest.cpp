#include <cstring>
#include <memory>
#include <type_traits>

#include <analytics/types/Point.h>

#include "tests/profile/ProfileTest.h"

namespace analytics {
namespace {

using tests::IsPoint;
using tests::ProfileText;

static_assert(sizeof(ProfileDoc) == sizeof(Document), "a profile has no state of its own");
static_assert(std::is_base_of<Document, ProfileDoc>::value, "a profile is a document");
static_assert(std::is_convertible<ProfileDoc*, Document*>::value, "its base is public");
static_assert(std::has_virtual_destructor<ProfileDoc>::value, "it is deleted as a document");
static_assert(!std::is_copy_constructible<ProfileDoc>::value, "copies would share the tree");

/// The place of a virtual operation in the table of its class, as the C++ ABI of all the camera's
/// compilers writes it into a pointer to member.
template <typename Operation>
std::size_t Slot(Operation operation) {
  std::ptrdiff_t offset = 0;
  std::memcpy(&offset, &operation, sizeof offset);
  return static_cast<std::size_t>(offset) / sizeof(void*);
}

TEST(TheVirtualOperationsOfAProfile, KeepTheirPlacesBehindTwoDestructors) {
  EXPECT_EQ(2U, Slot(&ProfileDoc::PointFromNode));
  EXPECT_EQ(3U, Slot(&ProfileDoc::CreateSearchContext));
}

TEST(TheVirtualOperationsOfAProfile, HaveThePlacesOfTheDocuments) {
  EXPECT_EQ(Slot(&Document::PointFromNode), Slot(&ProfileDoc::PointFromNode));
  EXPECT_EQ(Slot(&Document::CreateSearchContext), Slot(&ProfileDoc::CreateSearchContext));
}

TEST(AProfileAsADocument, BindsItsPrefixesWhenAStringIsParsed) {
  const std::unique_ptr<Document> document(new ProfileDoc);
  ASSERT_TRUE(document->ParseString(ProfileText("<tt:rule/><ka:eventSink/>")));
  EXPECT_TRUE(tests::First(*document, "//tt:rule"));
  EXPECT_TRUE(tests::First(*document, "//ka:eventSink"));
}

TEST(AProfileAsADocument, BindsItsPrefixesWhenABufferIsParsed) {
  const std::unique_ptr<Document> document(new ProfileDoc);
  const std::string text = ProfileText("<tt:rule/>");
  ASSERT_TRUE(document->ParseString(text.data(), text.size()));
  EXPECT_TRUE(tests::First(*document, "//tt:rule"));
}

TEST(AProfileAsADocument, BindsItsPrefixesWhenAskedForASearchContext) {
  const std::unique_ptr<Document> document(new ProfileDoc);
  ASSERT_TRUE(document->ParseString(ProfileText("<tt:rule/>")));
  EXPECT_TRUE(document->CreateSearchContext());
  EXPECT_TRUE(tests::First(*document, "//tt:rule"));
}

TEST(AProfileAsADocument, ReadsPointsFromAttributes) {
  const std::unique_ptr<Document> document(new ProfileDoc);
  ASSERT_TRUE(document->ParseString("<Point x='5' y='9'><x>1</x><y>2</y></Point>"));
  const tests::NodePtr node(document->SelectRootNode());
  types::Point point{7, 8};
  EXPECT_TRUE(document->PointFromNode(node.get(), point));
  EXPECT_THAT(point, IsPoint(5, 9));
}

}  // namespace
}  // namespace analytics

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/FailingXmlMemory.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/XmlErrors.h"
#include "tests/support/fakes/CallLog.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// What the settings traced in this process.
std::vector<std::string> Traced() {
  return fakes::CallLog::Instance().CallsOf("Trace(SettingsImpl");
}

/// What happens at the first search context of a process.
class TheFirstSearchContext : public testing::Test {
 protected:
  bool Make(bool registerNamespaces) {
    return m_document.Implementation().CreateXPathContext(registerNamespaces);
  }

  ShownDocument m_document;
  const tests::XmlErrors m_quiet;
};

TEST_F(TheFirstSearchContext, LoadsTheSettingsIfItBindsNamespaces) {
  tests::InFreshProcess([this] {
    ASSERT_TRUE(m_document.ParseString("<a/>"));
    EXPECT_THAT(Traced(), IsEmpty());
    EXPECT_TRUE(Make(true));
    EXPECT_THAT(Traced(),
                ElementsAre("Trace(SettingsImpl::LoadSettings(/nonexistent/analytics.ini)\n)"));
  });
}

TEST_F(TheFirstSearchContext, LoadsNothingIfItIsPlain) {
  tests::InFreshProcess([this] {
    ASSERT_TRUE(m_document.ParseString("<a><b>5</b></a>"));
    EXPECT_TRUE(m_document.CreateSearchContext());
    EXPECT_EQ(5, m_document.GetSingleValue("b", 7, nullptr));
    EXPECT_THAT(Traced(), IsEmpty());
  });
}

TEST_F(TheFirstSearchContext, LoadsNothingWithoutADocument) {
  tests::InFreshProcess([this] {
    EXPECT_FALSE(Make(true));
    EXPECT_THAT(Traced(), IsEmpty());
  });
}

TEST_F(TheFirstSearchContext, LoadsNothingIfItCannotBeMade) {
  tests::InFreshProcess([this] {
    ASSERT_TRUE(m_document.ParseString("<a/>"));
    const auto fail = [this] {
      const tests::NoXmlMemory exhausted;
      return Make(true);
    };
    EXPECT_FALSE(fail());
    EXPECT_THAT(Traced(), IsEmpty());
  });
}

TEST_F(TheFirstSearchContext, IsTheOnlyOneToLoadTheSettings) {
  tests::InFreshProcess([this] {
    ASSERT_TRUE(m_document.ParseString("<a/>"));
    EXPECT_TRUE(Make(true));
    EXPECT_TRUE(Make(true));
    EXPECT_THAT(Traced(), SizeIs(1));
  });
}

}  // namespace
}  // namespace analytics

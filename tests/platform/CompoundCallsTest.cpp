#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/ActingSubscribers.h"

namespace {

using tests::Action;
using tests::kFirstSubscribers;
using tests::Refused;

class OneActingSubscriber : public tests::ActingSubscribers,
                            public testing::WithParamInterface<int> {};

TEST_P(OneActingSubscriber, ActsAsInTheModelWhateverTheLockAnswers) {
  const auto action = static_cast<Action>(GetParam());
  for (std::size_t place = 0; place < kFirstSubscribers; ++place) {
    std::vector<Action> actions(kFirstSubscribers, Action::kNone);
    actions[place] = action;
    for (const Refused refused : tests::kRefusals) {
      for (const bool hasRegions : {false, true}) {
        for (const bool changesFirst : {false, true})
          Check({actions, hasRegions, changesFirst, refused});
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Action, OneActingSubscriber, testing::Range(1, tests::kActions));

}  // namespace

#include "suite/quicktree/QuickFileTree.h"
#include "tests/support/QuickTreeContract.h"

namespace k4test {
namespace {

std::shared_ptr<k4cmn::QuickFileTrees> Make() {
    return std::make_shared<k4suite::EmbeddedQuickFileTrees>();
}

INSTANTIATE_TEST_SUITE_P(Embedded, QuickTreeContract, testing::Values(&Make));

}  // namespace
}  // namespace k4test

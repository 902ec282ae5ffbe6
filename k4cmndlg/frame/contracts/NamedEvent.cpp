#include "k4cmndlg/frame/contracts/NamedEvent.h"

namespace k4cmn {

NamedEvent::~NamedEvent() = default;
NamedEvents::~NamedEvents() = default;

namespace {

class AbsentNamedEvents final : public NamedEvents {
 public:
    std::unique_ptr<NamedEvent> CreateOrOpen(const std::string&) override { return nullptr; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(NamedEvents, AbsentNamedEvents)

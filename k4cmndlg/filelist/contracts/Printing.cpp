#include "k4cmndlg/filelist/contracts/Printing.h"

namespace k4cmn {

Printing::~Printing() = default;

namespace {

class AbsentPrinting final : public Printing {
 public:
    std::unique_ptr<PrintSurface> Choose(QWidget*) override { return nullptr; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(Printing, AbsentPrinting)

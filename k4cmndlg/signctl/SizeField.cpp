#include "k4cmndlg/signctl/SizeField.h"

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/FieldLooks.h"

namespace k4cmn {

namespace {

bool ExchangeInRange(CDataExchange* pDX, QLineEdit* field, std::uint32_t& number,
                     std::uint32_t least, std::uint32_t most) {
    DDX_Text(pDX, field, number);
    if (pDX->Ok())
        DDV_MinMaxUInt(pDX, number, least, most);
    return pDX->Ok();
}

}  // namespace

void SetUpSizeField(QLineEdit* field, CSpinButtonCtrl* spin, int (*next)(int, int)) {
    TakeDigitsAlone(field);
    FitToText(field, QStringLiteral("0000000000"));
    spin->SetBuddy(field);
    QObject::connect(spin, &CSpinButtonCtrl::DeltaPos, spin,
                     [spin, next](int position, int step, bool* cancel) {
                         spin->SetPos(static_cast<std::int16_t>(next(position, step)));
                         *cancel = true;
                     });
}

bool ExchangeSignSize(CDataExchange* pDX, QLineEdit* rowField, std::uint32_t& rows,
                      QLineEdit* columnField, std::uint32_t& columns) {
    return ExchangeInRange(pDX, rowField, rows, kMinSignRows, kMaxSignRows) &&
           ExchangeInRange(pDX, columnField, columns, kMinSignColumns, kMaxSignColumns);
}

}  // namespace k4cmn

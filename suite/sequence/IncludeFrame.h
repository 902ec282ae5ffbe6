#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/contracts/CK4IncFrame.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/IncludeField.h"

namespace k4suite {

/// An include frame, read whole.
class IncludeFrame final : public CK4IncFrame {
 public:
    explicit IncludeFrame(std::vector<IncludeField> fields) : m_fields(std::move(fields)) {}

    std::uint32_t Type() const override { return k4cmn::kIncludeFrame; }
    std::uint16_t GetFieldCount() const override {
        return static_cast<std::uint16_t>(m_fields.size());
    }
    int GetFieldStatus(int field) const override { return Has(field) ? At(field).status : 0; }
    const char* GetPtrToFieldPath(int field) const override {
        return Has(field) ? At(field).path.c_str() : nullptr;
    }

 private:
    bool Has(int field) const {
        return field >= 0 && static_cast<std::size_t>(field) < m_fields.size();
    }
    const IncludeField& At(int field) const { return m_fields[static_cast<std::size_t>(field)]; }

    const std::vector<IncludeField> m_fields;
};

}  // namespace k4suite

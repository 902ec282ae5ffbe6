#include "k4cmndlg/clients/contracts/K4rsRpc.h"

K4rsRpc::~K4rsRpc() = default;

namespace {

constexpr std::int32_t kFailed = 1;

class AbsentK4rsRpc final : public K4rsRpc {
    using Word = std::uint32_t;
    using Result = std::int32_t;

 public:
    Result k4rsConnect(const char*) override { return kFailed; }
    Result k4rsDisconnect() override { return kFailed; }
    Result k4rsGetChangeFlag(Word*) override { return kFailed; }
    Result k4rsListConnectedPhoneEntries(char*, Word, Word*) override { return kFailed; }
    Result k4rsListServices(char*, Word, Word*) override { return kFailed; }
    Result k4rsAddDownLoadEvent(const char*, Word, Word, Word) override { return kFailed; }
};

}  // namespace

K4_DEFINE_PROVIDED(K4rsRpc, AbsentK4rsRpc)

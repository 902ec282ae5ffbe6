#include "k4cmndlg/filesel/RemoteEntries.h"

#include "k4cmndlg/clients/CK4CmnRS.h"
#include "k4cmndlg/clients/ReplyBuffer.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"

namespace k4cmn {

namespace {

constexpr char kThisSystem[] = "";

int Ask(K4rsRpc& service, std::string& reply) {
    try {
        ReplyBuffer<ConnectedEntries::kMaxReply> buffer;
        if (service.k4rsConnect(kThisSystem) != 0 ||
            service.k4rsListConnectedPhoneEntries(buffer.Data(), buffer.Size(), buffer.Length()) !=
                0)
            return 0;
        reply = buffer.Text();
        return 1;
    } catch (...) {
        return 0;
    }
}

void Disconnect(K4rsRpc& service) {
    try {
        service.k4rsDisconnect();
    } catch (...) {
        // The reply counts all the same.
    }
}

}  // namespace

int RemoteEntries::Read(std::string& reply) {
    const CriticalSectionLock lock(CK4CmnRS::m_cs);
    K4rsRpc& service = Provided<K4rsRpc>::Current();
    const int isRead = Ask(service, reply);
    Disconnect(service);
    return isRead;
}

}  // namespace k4cmn

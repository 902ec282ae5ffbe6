#include "apps/workbench/SignWatcher.h"

#include <QByteArray>
#include <algorithm>
#include <chrono>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/frame/Text.h"

namespace workbench {

namespace {

constexpr std::chrono::milliseconds kPollEvery{40};
constexpr std::uint32_t kDibHeader = 40;

}  // namespace

QImage ImageOfDib(const std::string& dib) {
    if (dib.size() < kDibHeader)
        return {};
    // A bitmap file is the bitmap behind a header of 14 bytes: "BM", size, reserved, offset of
    // pixels.
    QByteArray file("BM");
    const auto append = [&file](std::uint32_t word) {
        for (int byte = 0; byte < 4; ++byte)
            file.append(static_cast<char>(word >> (8 * byte)));
    };
    append(static_cast<std::uint32_t>(dib.size()) + 14);
    append(0);
    append(14 + kDibHeader);
    file.append(dib.data(), static_cast<qsizetype>(dib.size()));
    return QImage::fromData(file, "BMP").convertToFormat(QImage::Format_RGB32);
}

int LookAtSign(CK4CmnSS& client, const std::string& sign, SignLook& look, std::string& words) {
    std::string dib;
    std::uint32_t length = 0;
    if (!client.GetSignConfig(sign, &look.rows, &look.columns, &look.color, &look.pixel,
                              &look.dimMode, &look.dimLevel, &look.photocellOffset) ||
        !client.GetSignStatus(sign, &look.state, &look.sequence, &look.frame, &look.mode,
                              &look.param, &look.frameCount)) {
        words = client.GetLastError();
        return 0;
    }
    // The size comes from a service; what no sign can have isn't room to be made.
    if (std::uint64_t{look.rows} * look.columns > k4cmn::kMaxSignPixels) {
        words = "The sign reports a size that no sign has.";
        return 0;
    }
    dib.resize(kDibHeader + std::size_t{4} * look.rows * look.columns);
    if (!client.GetDIB(sign, dib.data(), static_cast<std::uint32_t>(dib.size()), &length)) {
        words = client.GetLastError();
        return 0;
    }
    dib.resize(std::min<std::size_t>(length, dib.size()));
    look.picture = ImageOfDib(dib);
    if (look.picture.isNull()) {
        words = "The sign's picture can't be read.";
        return 0;
    }
    return 1;
}

SignWatcher::SignWatcher(QObject* parent) : QThread(parent) {
    qRegisterMetaType<workbench::SignLook>();
    start();
}

SignWatcher::~SignWatcher() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_wake.notify_all();
    wait();
}

void SignWatcher::Watch(const std::string& service, const std::string& sign) {
    {
        const std::lock_guard lock(m_mutex);
        m_service = service;
        m_sign = sign;
        ++m_turn;
    }
    m_wake.notify_all();
}

void SignWatcher::run() {
    CK4CmnSS client;
    std::uint32_t turn = 0;
    std::uint32_t lastFlag = 0;
    bool seen = false;
    std::string lastWords;

    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        if (m_turn != turn) {
            turn = m_turn;
            seen = false;
            lastWords.clear();
        }
        const std::string service = m_service;
        const std::string sign = m_sign;
        lock.unlock();

        if (!sign.empty()) {
            SignLook look;
            std::string words;
            bool changed = false;
            {
                const k4cmn::CriticalSectionLock section(CK4CmnSS::m_cs, 750);
                if (client.ConnectService(service) &&
                    client.GetChangeFlag(sign, &look.changeFlag)) {
                    changed = !seen || look.changeFlag != lastFlag;
                    if (changed)
                        LookAtSign(client, sign, look, words);
                } else {
                    words = client.GetLastError();
                }
            }
            if (!words.empty()) {
                seen = false;
                if (words != lastWords)
                    Q_EMIT Failed(k4cmn::ToQt(service), k4cmn::ToQt(sign), k4cmn::ToQt(words));
            } else if (changed) {
                seen = true;
                lastFlag = look.changeFlag;
                Q_EMIT Looked(k4cmn::ToQt(service), k4cmn::ToQt(sign), look);
            }
            lastWords = words;
        }

        lock.lock();
        m_wake.wait_for(lock, kPollEvery, [&] { return m_stop || m_turn != turn; });
    }
}

}  // namespace workbench

#pragma once

#include <QImage>
#include <QThread>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>

#include "k4cmndlg/clients/SignServiceTypes.h"
#include "k4cmndlg/filestore/SignTypes.h"

class CK4CmnSS;

namespace workbench {

/// What one look at a sign gave.
struct SignLook {
    std::uint32_t changeFlag = 0;
    QImage picture;
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
    tag_K4_SIGN_DIM_MODE dimMode = K4_SIGN_DIM_MANUAL_0;
    std::int32_t dimLevel = 0;
    std::int32_t photocellOffset = 0;
    std::string state;
    std::string sequence;
    std::uint32_t frame = 0;
    std::uint32_t frameCount = 0;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t param = 0;
};

/// Watches one sign on a thread of its own, so that a slow service doesn't hold up the window:
/// polls the change flag, and fetches the picture and the facts only when it moved. Signals come on
/// the thread that owns the object. Watch() and Stop() may be called on any thread.
class SignWatcher final : public QThread {
    Q_OBJECT

 public:
    explicit SignWatcher(QObject* parent = nullptr);
    ~SignWatcher() override;

    /// Turns to another sign; empty texts watch none.
    void Watch(const std::string& service, const std::string& sign);

 Q_SIGNALS:
    void Looked(const QString& service, const QString& sign, const workbench::SignLook& look);
    /// The words of a failure, once for each new failure.
    void Failed(const QString& service, const QString& sign, const QString& words);

 protected:
    void run() override;

 private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::string m_service;
    std::string m_sign;
    std::uint32_t m_turn = 0;
    bool m_stop = false;
};

/// Fetches everything about a sign over an open connection.
/// @return 1, or 0 with the words in `words`.
int LookAtSign(CK4CmnSS& client, const std::string& sign, SignLook& look, std::string& words);

/// Decodes a device-independent bitmap. @return a null image if it isn't one.
QImage ImageOfDib(const std::string& dib);

}  // namespace workbench

Q_DECLARE_METATYPE(workbench::SignLook)

#include "apps/k4ctl/store/StopRequest.h"

#include <poll.h>

#include <cerrno>

namespace k4ctl {
namespace {

volatile std::sig_atomic_t g_came = 0;

void Note(int) {
    g_came = 1;
}

}  // namespace

StopRequest::StopRequest() : m_interrupt(), m_terminate() {
    g_came = 0;
    // Without restarting, so that waiting for an answer ends as well.
    struct sigaction noting {};
    noting.sa_handler = Note;
    sigaction(SIGINT, &noting, &m_interrupt);
    sigaction(SIGTERM, &noting, &m_terminate);
}

StopRequest::~StopRequest() {
    sigaction(SIGINT, &m_interrupt, nullptr);
    sigaction(SIGTERM, &m_terminate, nullptr);
    g_came = 0;
}

bool StopRequest::Came() {
    return g_came != 0;
}

bool StopRequest::WaitForInput(int descriptor) {
    // A signal that isn't let in between the look at what came and the waiting can't be missed.
    sigset_t held;
    sigset_t former;
    sigemptyset(&held);
    sigaddset(&held, SIGINT);
    sigaddset(&held, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &held, &former);
    pollfd input{descriptor, POLLIN, 0};
    while (!Came() && ppoll(&input, 1, nullptr, &former) < 0 && errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
    return !Came();
}

}  // namespace k4ctl

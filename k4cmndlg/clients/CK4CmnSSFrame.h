#pragma once

#include <string>
#include <string_view>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/clients/ReplyBuffer.h"
#include "k4cmndlg/clients/contracts/K4SSRpc.h"

// How a call of CK4CmnSS travels, for the source files of its families. Each operation is one of
// these patterns with its stub, its words and its arguments.

/// The words of every operation that found no connection.
inline constexpr const char* kServiceUnavailable = "Sign service unavailable.";

/// Carries `body` out and gives its result; an exception on the way is a failure with `words`.
template <class Body>
int CK4CmnSS::Bordered(const char* words, Body body) {
    try {
        return body();
    } catch (...) {
        return Failed(words);
    }
}

/// A plain overload: clears the words, calls the stub, and turns its result into 1, or into 0 with
/// the operation's words. The stub's code is dropped. The stub is a constant of the template, so
/// that the call costs what a call through the contract costs.
template <auto Stub, class... Arguments>
int CK4CmnSS::Told(const char* words, Arguments... arguments) {
    m_strLastError.clear();
    try {
        if ((k4cmn::Provided<K4SSRpc>::Current().*Stub)(arguments...) == 0)
            return 1;
    } catch (...) {
        return Failed(words);
    }
    return Failed(words);
}

/// A plain overload whose stub replies with text in a buffer of `Capacity` bytes: as Told(), and
/// the result is what `parse` makes of the reply.
template <auto Stub, std::uint32_t Capacity, class Parse, class... Arguments>
int CK4CmnSS::Replied(const char* words, Parse parse, Arguments... arguments) {
    k4cmn::ReplyBuffer<Capacity> reply;
    if (!Told<Stub>(words, arguments..., reply.Data(), reply.Size(), reply.Length()))
        return 0;
    return Bordered(words, [&] { return parse(reply.Text()); });
}

/// Connects and calls the plain overload. Has a border of its own, so that the words of a failure
/// are written while the lock is still held.
template <class Call>
int CK4CmnSS::UnderLock(const std::string& service, Call call) {
    return Bordered(kServiceUnavailable, [&] { return ConnectService(service) ? call() : 0; });
}

/// A service overload: connects under the lock and calls the plain overload. What the lock reports
/// isn't looked at. The outer border is for a lock that can't be taken at all.
template <class Call>
int CK4CmnSS::OverService(const std::string& service, Call call) {
    return Bordered(kServiceUnavailable, [&] {
        const k4cmn::CriticalSectionLock lock(m_cs, m_dwLockTimeout);
        return UnderLock(service, call);
    });
}

/// A service overload that tests the lock: 0 without words, and without connecting, where the lock
/// couldn't be had.
template <class Call>
int CK4CmnSS::OverTestedLock(const std::string& service, std::uint32_t dwLockTimeout, Call call) {
    return Bordered(kServiceUnavailable, [&] {
        const k4cmn::CriticalSectionLock lock(m_cs, dwLockTimeout);
        if (!lock.IsLocked()) {
            m_strLastError.clear();
            return 0;
        }
        return UnderLock(service, call);
    });
}

#pragma once

#include "k4cmndlg/clients/contracts/K4SSRpcConnection.h"
#include "k4cmndlg/clients/contracts/K4SSRpcControl.h"
#include "k4cmndlg/clients/contracts/K4SSRpcReads.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The stubs that carry calls to the sign service, by family. A further family joins as a further
/// base class.
///
/// The rules that all of them keep:
/// - The result is 0 for success and any other value for failure; k4ssIsServer() alone means yes by
///   a value other than 0.
/// - The process has one connection, and no stub takes a handle.
/// - Text goes in zero-terminated. Text comes out in a buffer that the caller owns: the stub gets
///   the buffer, its capacity in bytes, and a word for the length that it reports. It writes no
///   byte beyond the capacity and ends the text with a zero.
/// - Numbers come out through pointers, any of which may be null.
/// - A stub blocks until the service has answered.
///
/// Threads: any, also several at once (plain calls take no lock): an implementation guards itself.
class K4CMNCORE_EXPORT K4SSRpc : public K4SSRpcConnection,
                                 public K4SSRpcReads,
                                 public K4SSRpcControl {
 public:
    ~K4SSRpc() override;
};

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, K4SSRpc)

// The smallest program on the library: asks a sign service for its signs. With nothing installed
// behind the contracts there is no service, and the client says so.

#include <cstdio>
#include <string>
#include <vector>

#include "k4cmndlg/clients/CK4CmnSS.h"

int main() {
    CK4CmnSS client;
    std::vector<std::string> signs;
    if (client.GetSignList("Local", signs)) {
        for (const std::string& sign : signs)
            std::printf("%s\n", sign.c_str());
        return 0;
    }
    std::printf("%s\n", client.GetLastError().c_str());
    return client.GetLastError() == "Sign service unavailable." ? 0 : 1;
}

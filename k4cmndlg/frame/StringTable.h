#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// One text of a module, under its resource number.
struct StringRow {
    std::uint32_t id;
    const char* text;
};

/// The texts of one module: a view of rows that live as long as the module is loaded.
using StringTable = std::span<const StringRow>;

/// The text that a resource number stands for. Asked in this order, and the first that knows the
/// number answers: the tables put in front by this thread (ResourceScope, the innermost first), the
/// application's, those of the extension modules in the order of their loading.
/// @return the text, or the empty text if nobody knows the number. Threads: any.
K4CMNCORE_EXPORT std::string LoadString(std::uint32_t id);

/// Names the application's own texts; an empty table takes them away. Threads: any.
K4CMNCORE_EXPORT void SetApplicationStrings(StringTable table);

/// Makes a module's texts known for the life of the object: what an extension module does when it
/// is loaded and withdraws when it is unloaded. Threads: any.
class K4CMNCORE_EXPORT StringModule {
 public:
    explicit StringModule(StringTable table);
    ~StringModule();
    StringModule(const StringModule&) = delete;
    StringModule& operator=(const StringModule&) = delete;

 private:
    StringTable m_table;
};

/// Puts one module's texts in front of all others for the life of the object: what an exported
/// dialog does while it runs, so that its numbers mean its own texts whatever the application calls
/// by the same numbers. Scopes nest. It holds for the thread that made it, which is also the one
/// that ends it.
class K4CMNCORE_EXPORT ResourceScope {
 public:
    explicit ResourceScope(StringTable table);
    ~ResourceScope();
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;

 private:
    friend std::string LoadString(std::uint32_t id);

    StringTable m_table;
    const ResourceScope* m_outer;
};

/// Puts arguments in the places of a text: "%1" becomes the first, "%2" the second, up to "%9".
/// A place without an argument becomes nothing. Any other percent sign stays as it is, and what an
/// argument holds is not looked at again.
K4CMNCORE_EXPORT std::string FormatMessage1(std::string_view text,
                                            std::initializer_list<std::string_view> arguments);

}  // namespace k4cmn

#include "k4cmndlg/clients/QueueReply.h"

#include <algorithm>
#include <iterator>

#include "k4cmndlg/clients/ReplyFields.h"

namespace k4cmn {

namespace {

/// Takes a field of an entry at a time; each operation is false at the end of the reply.
class EntryFields {
 public:
    explicit EntryFields(ReplyTokens& tokens) : m_tokens(tokens) {}

    /// Cut at the room for it, and filled up with zeros.
    bool Name(char (&name)[K4_SEQUENCE_NAME_ROOM]) {
        if (!m_tokens.Next(m_token))
            return false;
        const std::string_view kept = m_token.substr(0, std::size(name) - 1);
        std::fill(std::copy(kept.begin(), kept.end(), name), std::end(name), '\0');
        return true;
    }
    bool Mode(tag_K4_PLAY_SEQ_MODE& mode) {
        if (!m_tokens.Next(m_token))
            return false;
        mode = static_cast<tag_K4_PLAY_SEQ_MODE>(DecimalNumber(m_token));
        return true;
    }
    bool Word(std::uint32_t& word) {
        if (!m_tokens.Next(m_token))
            return false;
        word = DecimalWord(m_token);
        return true;
    }
    bool Flag(std::int32_t& flag) {
        if (!m_tokens.Next(m_token))
            return false;
        flag = DecimalNumber(m_token) != 0 ? 1 : 0;
        return true;
    }

 private:
    ReplyTokens& m_tokens;
    std::string_view m_token;
};

bool ReadEntry(std::uint32_t tag, EntryFields fields, K4_DISPLAY_QUEUE& entry) {
    K4_DISPLAY_QUEUE::Sequence& sequence = entry.sequence;
    K4_DISPLAY_QUEUE::Window& window = entry.window;
    switch (tag) {
        case K4_QUEUE_SEQUENCE:
            entry.dwType = tag;
            return fields.Name(sequence.szSequence) && fields.Mode(sequence.ePlayMode) &&
                   fields.Word(sequence.dwPlayParam);
        case K4_QUEUE_WINDOW_ENABLE:
            entry.dwType = tag;
            return fields.Word(window.dwWindow) && fields.Flag(window.bOpen);
        case K4_QUEUE_WINDOW_MOVE:
            entry.dwType = tag;
            return fields.Word(window.dwWindow) && fields.Word(window.dwRow) &&
                   fields.Word(window.dwCol);
        default:
            return true;
    }
}

}  // namespace

int ReadQueueReply(std::string_view reply, K4_DISPLAY_QUEUE* entries, std::uint32_t capacity) {
    ReplyTokens tokens(reply, "\n\t");
    std::uint32_t count = 0;
    std::string_view tag;
    while (count < capacity && tokens.Next(tag) &&
           ReadEntry(DecimalWord(tag), EntryFields(tokens), entries[count]))
        ++count;
    return static_cast<int>(count);
}

}  // namespace k4cmn

#include <algorithm>

#include "velda_lib/number_text.h"
#include "zt_script/table_words.h"

namespace zt {
namespace {

using velda::FormatLong;

/// What a conversion is asked.
struct Question {
    std::string text;
    int number = 0;
    int width = 0;
};

enum class Takes { Text, Number, TextAndNumber, NumberAndWidth };

/// A conversion between a text in a cell and what stands behind it.
struct Conversion {
    std::string_view name;
    Takes takes;
    std::string (*answer)(const Question& question);
};

template <std::uint32_t (*find)(std::string_view)>
std::string KeyOf(const Question& question) {
    return FormatLong(find(question.text));
}
template <std::string (*name)(std::uint32_t)>
std::string NameOf(const Question& question) {
    return name(static_cast<std::uint32_t>(question.number));
}

constexpr Conversion kConversions[] = {
    {"GetMatlKey", Takes::Text, &KeyOf<&CTBCommonWnd::GetMatlKey>},
    {"GetMatlName", Takes::Number, &NameOf<&CTBCommonWnd::GetMatlName>},
    {"GetSectKey", Takes::Text, &KeyOf<&CTBCommonWnd::GetSectKey>},
    {"GetSectName", Takes::Number, &NameOf<&CTBCommonWnd::GetSectName>},
    {"GetThikKey", Takes::Text, &KeyOf<&CTBCommonWnd::GetThikKey>},
    {"GetThikName", Takes::Number, &NameOf<&CTBCommonWnd::GetThikName>},
    {"GetPontNameKey", Takes::Text, &KeyOf<&CTBCommonWnd::GetPontNameKey>},
    {"GetPontNameName", Takes::Number, &NameOf<&CTBCommonWnd::GetPontNameName>},
    {"GetMembNameKey", Takes::TextAndNumber,
     [](const Question& q) { return FormatLong(CTBCommonWnd::GetMembNameKey(q.text, q.number)); }},
    {"GetMembNameName", Takes::Number, &NameOf<&CTBCommonWnd::GetMembNameName>},
    {"GetStldKey", Takes::Text, &KeyOf<&CTBCommonWnd::GetStldKey>},
    {"GetStldName", Takes::Number, &NameOf<&CTBCommonWnd::GetStldName>},
    {"GetStorKey", Takes::Text, &KeyOf<&CTBCommonWnd::GetStorKey>},
    {"GetStorName", Takes::Number, &NameOf<&CTBCommonWnd::GetStorName>},
    {"GetYesNo", Takes::Text, [](const Question& q) { return FormatLong(CTBCommonWnd::GetYesNo(q.text)); }},
    {"GetYesNoName", Takes::Number, [](const Question& q) { return CTBCommonWnd::GetYesNoName(q.number); }},
    {"GetValueNum", Takes::Text, [](const Question& q) { return FormatLong(CTBCommonWnd::GetValueNum(q.text)); }},
    {"GetValueStr", Takes::NumberAndWidth,
     [](const Question& q) { return CTBCommonWnd::GetValueStr(q.number, q.width); }},
};

bool ReadNumber(const ScriptWord& word, int& number) {
    std::int64_t read = 0;
    if (!velda::ReadWholeLong(word.value, read) || !std::in_range<int>(read)) return false;
    number = static_cast<int>(read);
    return true;
}

bool ReadQuestion(Takes takes, ScriptWords words, Question& question) {
    const bool takesTwo = takes == Takes::TextAndNumber || takes == Takes::NumberAndWidth;
    if (words.size() != (takesTwo ? 2u : 1u)) return false;
    switch (takes) {
        case Takes::Text: question.text = words[0].value; return true;
        case Takes::Number: return ReadNumber(words[0], question.number);
        case Takes::TextAndNumber: question.text = words[0].value; return ReadNumber(words[1], question.number);
        case Takes::NumberAndWidth:
            return ReadNumber(words[0], question.number) && ReadNumber(words[1], question.width);
    }
    return false;
}

CommandResult Call(ScriptSession& session, ScriptWords words) {
    if (words.empty()) return CommandResult::Misused();
    const auto conversion = std::find_if(std::begin(kConversions), std::end(kConversions),
                                         [&](const Conversion& c) { return c.name == words[0].value; });
    if (conversion == std::end(kConversions)) return CommandResult::Unreadable("unknown name " + words[0].value);
    Question question;
    if (!ReadQuestion(conversion->takes, words.subspan(1), question)) return CommandResult::Misused();
    session.SetValue(conversion->answer(question));
    return CommandResult::Done();
}

CommandResult ExpectValue(ScriptSession& session, ScriptWords words) {
    if (words.size() != 1) return CommandResult::Misused();
    return CommandResult::Compare(words[0].value, session.Value());
}

constexpr ScriptCommand kCommands[] = {
    {"call", &Call, "call NAME \"text\"|NUMBER [NUMBER]"},
    {"expect value", &ExpectValue, "expect value \"text\""},
};

}  // namespace

std::span<const ScriptCommand> CallCommands() { return kCommands; }

}  // namespace zt

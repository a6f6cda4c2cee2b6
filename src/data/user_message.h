#pragma once

#include <string>

namespace numarel {

// The icon of a message box.
enum class MessageIcon { Information, Warning, Critical, Question };

// A message box the user is shown: one OK button.
struct UserMessage {
    std::string title;
    std::string text;
    MessageIcon icon = MessageIcon::Information;

    bool operator==(const UserMessage&) const = default;
};

// Title of the program's plain notices.
inline constexpr const char* kFriendshipTip = "Friendship Tip:";

}  // namespace numarel

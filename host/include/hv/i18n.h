// Host text conversion used for file names.
#pragma once

#include <stdexcept>
#include <string>

namespace fl::i18n {

// Raised for a character that has no ASCII form.
class conversion_error : public std::range_error {
  public:
    using std::range_error::range_error;
};

// UTF-16 to ASCII; any unit above 127 raises conversion_error.
class codecvt_ustring_to_ascii {
  public:
    std::string operator()(const std::u16string& text) const;
};

}  // namespace fl::i18n

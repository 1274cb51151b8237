#include "platform/win32/win32_regional.h"

#include <windows.h>

#include <iterator>

#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

// Windows gives at most five characters with the end mark.
std::string localeText(LCTYPE kind, const std::string& otherwise) {
  wchar_t text[8];
  const int size = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, kind, text, std::size(text));
  return size > 1 ? utf8FromWide(text) : otherwise;
}

}  // namespace

Regional userRegional() {
  const Regional standard;
  return {localeText(LOCALE_SDECIMAL, standard.decimalSeparator),
          localeText(LOCALE_SNEGATIVESIGN, standard.minusSign)};
}

}  // namespace zendor

// The forms that numbers, dates and truth values have in another locale than English (United States), for the
// conversions of base/convert.h. None are in use unless somebody who runs on behalf of such a locale says so.
#pragma once

#include <string>
#include <string_view>

namespace kestrun {

struct LocalForms {
  // A number or date as this locale writes it, in the English (United States) form that the conversions read.
  std::u16string (*number_in)(std::u16string_view text);
  std::u16string (*date_in)(std::u16string_view text);
  // The way back.
  std::string (*number_out)(std::string_view text);
  std::string (*date_out)(double date);
  std::string_view true_word;
  std::string_view false_word;
};

// The forms in use; null for English (United States).
[[nodiscard]] const LocalForms* FormsInUse() noexcept;

// Changes the forms of the innermost scope.
void UseForms(const LocalForms* forms) noexcept;

// Uses other forms while it lives.
class LocalFormsScope {
 public:
  explicit LocalFormsScope(const LocalForms* forms) noexcept;
  ~LocalFormsScope();
  LocalFormsScope(const LocalFormsScope&) = delete;
  LocalFormsScope& operator=(const LocalFormsScope&) = delete;

 private:
  const LocalForms* outer_;
};

}  // namespace kestrun

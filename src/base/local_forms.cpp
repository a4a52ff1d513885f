#include "base/local_forms.h"

#include <utility>

namespace kestrun {
namespace {

const LocalForms* forms_in_use = nullptr;

}  // namespace

const LocalForms* FormsInUse() noexcept { return forms_in_use; }

void UseForms(const LocalForms* forms) noexcept { forms_in_use = forms; }

LocalFormsScope::LocalFormsScope(const LocalForms* forms) noexcept : outer_(std::exchange(forms_in_use, forms)) {}

LocalFormsScope::~LocalFormsScope() { forms_in_use = outer_; }

}  // namespace kestrun

#include "desktop/forms.h"

#include "ui_frmAbout.h"
#include "ui_frmColor.h"
#include "ui_frmEdit.h"
#include "ui_frmGlobalOptions.h"
#include "ui_frmLogo.h"
#include "ui_frmNotepad.h"
#include "ui_frmPmx.h"
#include "ui_frmRenum.h"
#include "ui_frmResiz.h"
#include "ui_frmValid.h"

namespace tul::desktop {

namespace {

template <class Form>
void setUp(QMainWindow& window) {
    Form().setupUi(&window);
}

struct FormEntry {
    std::string_view name;
    void (*setUp)(QMainWindow&);
};
constexpr FormEntry forms[] = {
    {"frmLogo", setUp<Ui::frmLogo>},   {"frmValid", setUp<Ui::frmValid>},
    {"frmPmx", setUp<Ui::frmPmx>},     {"frmGlobalOptions", setUp<Ui::frmGlobalOptions>},
    {"frmResiz", setUp<Ui::frmResiz>}, {"frmEdit", setUp<Ui::frmEdit>},
    {"frmRenum", setUp<Ui::frmRenum>}, {"frmAbout", setUp<Ui::frmAbout>},
    {"frmColor", setUp<Ui::frmColor>}, {"frmNotepad", setUp<Ui::frmNotepad>},
};

}  // namespace

void setUpForm(std::string_view name, QMainWindow& window) {
    for (const FormEntry& form : forms)
        if (form.name == name) form.setUp(window);
}

}  // namespace tul::desktop

#include "editor/ApplyFormFonts.h"

#include "editor/Settings.h"

#include <QVariant>
#include <QWidget>

void ApplyFormFonts(QWidget &form, const Settings &settings)
{
    const auto controls = form.findChildren<QWidget *>();
    for (QWidget *control : controls) {
        const QString tag = control->property("Tag").toString();
        if (tag != u"text" && tag != u"tengwar")
            continue;
        QFont font = control->font();
        font.setFamilies(
            {tag == u"text" ? settings.GenericRomanFont : settings.GenericTengwarFont});
        control->setFont(font);
    }
}

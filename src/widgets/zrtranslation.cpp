#include <zrtranslation>

#include "link/general_records.h"
#include "link/startup.h"
#include "widgets/languagefile.h"

#include <cstdio>
#include <zrdir>

ZrTranslation *ZrTranslation::instance_ = nullptr;

namespace
{

// The numbers are stored in devices: the order never changes.
const char *const LanguageNames[ZrTranslation::LanguageCount] = {
    "chinese",    "chinese_complex", "czech",   "danish",    "english",   "finnish",  "french",
    "german",     "greek",           "hebrew",  "hungarian", "italian",   "japanese", "polish",
    "portuguese", "russian",         "spanish", "thai",      "slovenia",  "romanian", "bulgarian",
    "arabic",     "hindi",           "vietnam", "holland",   "turkey",    "persion",  "svenska",
    "korean",     "indonesia",       "brazile", "flemish",   "ukrainian", "slovak"};

Texts &translations()
{
    static Texts texts;
    return texts;
}

std::uint32_t current = ZrTranslation::NoLanguage;

ZrDir languageFolder()
{
    return ZrDir(resolveResourcePath(ZrString("./language")));
}

ZrString fileOf(std::uint32_t language)
{
    return ZrString("%1%2%3")
        .arg(ZrString("tran_"))
        .arg(ZrString(LanguageNames[language]))
        .arg(ZrString(".xml"));
}

bool isSet(std::uint32_t low, std::uint32_t high, std::uint32_t language)
{
    return language < 32 ? low >> language & 1u : high >> (language - 32) & 1u;
}

} // namespace

ZrString tr(int id)
{
    return translations().value(std::uint32_t(id));
}

void ZrTranslation::createTranslation(ZrObject *parent)
{
    if (!instance_)
        (new ZrTranslation(parent))->loadConfiguredLanguage(); // owned by the parent
}

void ZrTranslation::createWithLanguage(ZrObject *parent, std::uint32_t language)
{
    if (!instance_)
        (new ZrTranslation(parent))->setLanguage(language); // owned by the parent
}

ZrTranslation::ZrTranslation(ZrObject *parent) : ZrObject(parent)
{
    instance_ = this;
}

ZrTranslation::~ZrTranslation()
{
    instance_ = nullptr;
}

std::uint32_t ZrTranslation::currentLanguage() const
{
    return current;
}

void ZrTranslation::languageFiles(ZrList<ZrString> *files)
{
    for (std::uint32_t language = 0; language < LanguageCount; ++language)
        files->append(fileOf(language));
}

void ZrTranslation::availableLanguages(std::uint32_t *lowMask, std::uint32_t *highMask)
{
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    const ZrDir folder = languageFolder();
    for (std::uint32_t language = 0; language < LanguageCount; ++language) {
        if (!folder.exists(fileOf(language)))
            continue;
        if (language < 32)
            low |= 1u << language;
        else
            high |= 1u << (language - 32);
    }
    *lowMask = (*lowMask & low) ? *lowMask & low : low;
    *highMask = (*highMask & high) ? *highMask & high : high;
}

void ZrTranslation::loadConfiguredLanguage()
{
    GeneralParams general = readGeneralParams();
    if (general.language == current)
        return;
    std::uint32_t low = general.languageMask;
    std::uint32_t high = general.extendedLanguageMask;
    availableLanguages(&low, &high);
    if (general.language < LanguageCount && isSet(low, high, general.language)) {
        setLanguage(general.language);
        return;
    }
    for (std::uint32_t language = 0; language < LanguageCount; ++language) {
        if (!isSet(low, high, language))
            continue;
        if (language > 31)
            general.extendedLanguageMask = high;
        else
            general.languageMask = low;
        general.language = language;
        writeGeneralParams(general);
        setLanguage(language);
        return;
    }
    setLanguage(general.language);
}

void ZrTranslation::setLanguage(std::uint32_t language)
{
    if (language == current)
        return;
    current = language;
    const ZrDir folder = languageFolder();
    if (language >= LanguageCount || !folder.exists(fileOf(language))) {
        std::puts("No language package found !!!");
        return;
    }
    const ZrByteArray path = folder.filePath(fileOf(language)).toUtf8();
    if (!readLanguageFile(path.constData(), &translations())) {
        std::printf("Translation file %s load failed !!!\n", path.constData());
        return;
    }
    emit(this, &languageChanged);
}

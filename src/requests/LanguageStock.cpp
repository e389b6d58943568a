// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/LanguageStock.h"

#include <array>

namespace {

/// UTF-8. Some entries stand twice: ISO 639-2 has two three-letter codes for these languages, which share one
/// two-letter code.
constexpr std::array stock {
    // clang-format off
    "aa Afar", "ab Abkhazian", "ae Avestan", "af Afrikaans", "ak Akan", "am Amharic", "an Aragonese", "ar Arabic",
    "as Assamese", "av Avaric", "ay Aymara", "az Azerbaijani", "ba Bashkir", "be Belarusian", "bg Bulgarian",
    "bh Bihari", "bi Bislama", "bm Bambara", "bn Bengali", "bo Tibetan", "bo Tibetan", "br Breton", "bs Bosnian",
    "ca Catalan;Va", "ce Chechen", "ch Chamorro", "co Corsican", "cr Cree", "cs Czech", "cs Czech", "cu ChurchSlav",
    "cv Chuvash", "cy Welsh", "cy Welsh", "da Danish", "de German", "de German", "dv Divehi;Dhi", "dz Dzongkha",
    "ee Ewe", "el Greek,Mode", "el Greek,Mode", "en English", "eo Esperanto", "es Spanish;Ca", "et Estonian",
    "eu Basque", "eu Basque", "fa Persian", "fa Persian", "ff Fulah", "fi Finnish", "fj Fijian", "fo Faroese",
    "fr French", "fr French", "fy WesternFri", "ga Irish", "gd Gaelic;Sco", "gl Galician", "gn Guarani",
    "gu Gujarati", "gv Manx", "ha Hausa", "he Hebrew", "hi Hindi", "ho HiriMotu", "hr Croatian", "ht Haitian;Ha",
    "hu Hungarian", "hy Armenian", "hy Armenian", "hz Herero", "ia Interlingua", "id Indonesian", "ie Interlingue",
    "ig Igbo", "ii SichuanYi;", "ik Inupiaq", "io Ido", "is Icelandic", "is Icelandic", "it Italian", "iu Inuktitut",
    "ja Japanese", "jv Javanese", "ka Georgian", "ka Georgian", "kg Kongo", "ki Kikuyu;Gik", "kj Kuanyama;K",
    "kk Kazakh", "kl Kalaallisut", "km CentralKhm", "kn Kannada", "ko Korean", "kr Kanuri", "ks Kashmiri",
    "ku Kurdish", "kv Komi", "kw Cornish", "ky Kirghiz;Ky", "la Latin", "lb Luxembourgi", "lg Ganda",
    "li Limburgan;", "ln Lingala", "lo Lao", "lt Lithuanian", "lu Luba-Katang", "lv Latvian", "mg Malagasy",
    "mh Marshallese", "mi Maori", "mi Maori", "mk Macedonian", "mk Macedonian", "ml Malayalam", "mn Mongolian",
    "mo Moldavian;", "mr Marathi", "ms Malay", "ms Malay", "mt Maltese", "my Burmese", "my Burmese", "na Nauru",
    "nb Bokmål,Nor", "nd Ndebele,No", "ne Nepali", "ng Ndonga", "nl Dutch;Flem", "nl Dutch;Flem", "nn NorwegianN",
    "no Norwegian", "nr Ndebele,So", "nv Navajo;Nav", "ny Chichewa;C", "oc Occitan(po", "oj Ojibwa", "om Oromo",
    "or Oriya", "os Ossetian;O", "pa Panjabi;Pu", "pi Pali", "pl Polish", "ps Pushto;Pas", "pt Portuguese",
    "qu Quechua", "rm Romansh", "rn Rundi", "ro Romanian", "ro Romanian", "ru Russian", "rw Kinyarwanda",
    "sa Sanskrit", "sc Sardinian", "sd Sindhi", "se NorthernSa", "sg Sango", "si Sinhala;Si", "sk Slovak",
    "sk Slovak", "sl Slovenian", "sm Samoan", "sn Shona", "so Somali", "sq Albanian", "sq Albanian", "sr Serbian",
    "ss Swati", "st Sotho,Sout", "su Sundanese", "sv Swedish", "sw Swahili", "ta Tamil", "te Telugu", "tg Tajik",
    "th Thai", "ti Tigrinya", "tk Turkmen", "tl Tagalog", "tn Tswana", "to Tonga(Tong", "tr Turkish", "ts Tsonga",
    "tt Tatar", "tw Twi", "ty Tahitian", "ug Uighur;Uyg", "uk Ukrainian", "ur Urdu", "uz Uzbek", "ve Venda",
    "vi Vietnamese", "vo Volapük", "wa Walloon", "wo Wolof", "xh Xhosa", "yi Yiddish", "yo Yoruba", "za Zhuang;Chu",
    "zh Chinese", "zh Chinese", "zu Zulu",
    // clang-format on
};

} // namespace

namespace languageStock {

QStringList entries()
{
    QStringList list;
    for (const char* entry : stock)
        list += QString::fromUtf8(entry);
    return list;
}

QString entryFor(QStringView code)
{
    for (const QString& entry : entries()) {
        if (entry.size() > 2 && entry.first(2) == code)
            return entry;
    }
    return {};
}

} // namespace languageStock

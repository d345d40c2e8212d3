#include "kx_control_words.h"

#include "ux/ux_localize.h"

KXControlWords KXControlWords::load()
{
    KXControlWords words;
    for (std::string* word :
         {&words.all,        &words.allFound,  &words.none,        &words.someOfAll,     &words.search,
          &words.noMatch,    &words.clear,     &words.apply,       &words.cancel,        &words.onlyThis,
          &words.allButThis, &words.from,      &words.to,          &words.relative,      &words.today,
          &words.lastSteps,  &words.thisMonth, &words.lastMonth,   &words.thisQuarter,   &words.lastQuarter,
          &words.thisYear,   &words.lastYear,  &words.monthToDate, &words.quarterToDate, &words.yearToDate})
        *word = uxLocalizeString(*word);
    return words;
}

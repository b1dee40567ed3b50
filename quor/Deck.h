#pragma once

// All that a host needs to read, check, write and compare decks.

#include "quor/data/Access.h"
#include "quor/data/KeywordDataFactory.h"
#include "quor/deck/Deck.h"
#include "quor/deck/DeckDifference.h"
#include "quor/deck/DeckEditor.h"
#include "quor/deck/DeckFiles.h"
#include "quor/deck/DeckFormatter.h"
#include "quor/deck/DeckKeyword.h"
#include "quor/deck/DeckLanguage.h"
#include "quor/deck/DeckSource.h"
#include "quor/deck/DeckSummary.h"
#include "quor/deck/DeckUnits.h"
#include "quor/deck/Finding.h"
#include "quor/deck/FindingCodes.h"
#include "quor/deck/Portability.h"
#include "quor/deck/ReadOptions.h"
#include "quor/deck/Target.h"
#include "quor/deck/TextRange.h"
#include "quor/deck/ValueAddress.h"
#include "quor/syntax/IKeywordSyntax.h"

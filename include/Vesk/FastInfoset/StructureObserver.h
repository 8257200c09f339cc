// SPDX-License-Identifier: MIT
#ifndef VESK_FASTINFOSET_STRUCTUREOBSERVER_H
#define VESK_FASTINFOSET_STRUCTUREOBSERVER_H

#include "Vesk/FastInfoset/DocumentVocabulary.h"
#include "Vesk/FastInfoset/FastInfoset.h"
#include "Vesk/FastInfoset/ResolvedQualName.h"
#include <string>

namespace Vesk::FastInfoset
{

/// Is told of every structure that a FastInfosetParser reads and where it stands, down to the bit: for programs that
/// show, measure or check a document's octets instead of what they mean.
///
/// A document is told as parts. They follow each other without gap or overlap: each begins where the one before it
/// ended, the first at the first octet handed to the parser, the last ends with the document. Octets behind the
/// document are not read and not told of. Structures group the parts, and nest: all parts and structures between
/// startStructure and endStructure belong to the structure, an element's children to the element.
///
/// A part is told of when it has been read and all that it refers to has been found, before the SAX event that it takes
/// part in. When a parse fails, the part that failed is not told of, and the structures that are open are not closed.
///
/// Everything handed over is borrowed and lives until the call returns, entries of tables until the next parse. An
/// exception thrown by the observer ends the parse and reaches the caller of parse unchanged.
class VESK_FASTINFOSET_API StructureObserver
{
public:
    /// What parts belong to.
    enum class Structure
    {
        DOCUMENT,
        HEADER,             ///< all that is in front of the document's children
        ADDITIONAL_DATA,    ///< X.891 C.2.4
        INITIAL_VOCABULARY, ///< X.891 C.2.5
        VOCABULARY_TABLE,   ///< the entries of one table within it
        NOTATIONS,
        NOTATION,
        UNPARSED_ENTITIES,
        UNPARSED_ENTITY,
        ELEMENT,
        NAMESPACE_ATTRIBUTES,
        NAMESPACE_ATTRIBUTE,
        ATTRIBUTES,
        ATTRIBUTE,
        CHARACTER_CHUNK,
        PROCESSING_INSTRUCTION,
        COMMENT,
        DOCUMENT_TYPE_DECLARATION,
        ENTITY_REFERENCE
    };

    /// The tables of a vocabulary: those of DocumentVocabulary, with the same numbers, and those of names.
    enum class Table
    {
        NONE = -1,
        RESTRICTED_ALPHABET = DocumentVocabulary::RESTRICTED_ALPHABET,
        ENCODING_ALGORITHM = DocumentVocabulary::ENCODING_ALGORITHM,
        PREFIX = DocumentVocabulary::PREFIX,
        NAMESPACE_NAME = DocumentVocabulary::NAMESPACE_NAME,
        LOCAL_NAME = DocumentVocabulary::LOCAL_NAME,
        OTHER_NCNAME = DocumentVocabulary::OTHER_NCNAME,
        OTHER_URI = DocumentVocabulary::OTHER_URI,
        ATTRIBUTE_VALUE = DocumentVocabulary::ATTRIBUTE_VALUE,
        OTHER_STRING = DocumentVocabulary::OTHER_STRING,
        CONTENT_CHARACTER_CHUNK = DocumentVocabulary::CONTENT_CHARACTER_CHUNK,
        ELEMENT_NAME,
        ATTRIBUTE_NAME
    };

    /// What a string or name has to do with its table.
    enum class Indexing
    {
        LITERAL, ///< it stands in the document and enters no table
        ADDED,   ///< it stands in the document and has this index from now on
        INDEXED  ///< the document holds this index only
    };

    /// How the characters of a literal are stored (X.891 C.19), with the values of the two bits that tell.
    enum class Form
    {
        UTF8 = 0,
        UTF16 = 1,
        RESTRICTED_ALPHABET = 2,
        ENCODING_ALGORITHM = 3
    };

    /// Bits of the document that say one thing. Which members mean something depends on the kind.
    struct Part
    {
        /// What the bits say, and which members mean something.
        enum Kind
        {
            XML_DECLARATION, ///< text
            IDENTIFICATION,  ///< the octets that every document starts with
            FORMAT_VERSION,
            FLAGS,        ///< which parts the header or the initial vocabulary has: value, without the padding in front
            COUNT,        ///< how many entries or pairs follow: value; their table
            START,        ///< tells a structure from others and what it has
            LITERAL_NAME, ///< says that a name follows as strings, and which: the table of the name
            STRING,       ///< table, indexing, index, form and formIndex, text; padding and length belong to the part
            NAME,         ///< table, indexing, index, name; behind a LITERAL_NAME's strings it takes no bits
            STANDALONE,   ///< value, 0 or 1
            TERMINATOR,   ///< of the innermost open structure
            PADDING
        };

        Kind kind;                              ///< what the bits say
        unsigned long beginBit;                 ///< counted from the first bit of the first octet handed to the parser
        unsigned long endBit;                   ///< the bit behind the part
        unsigned long value = 0;                ///< of flags, counts and standalone
        Table table = Table::NONE;              ///< a string with Table::NONE and Indexing::LITERAL never enters one
        Indexing indexing = Indexing::LITERAL;  ///< of a string or name
        unsigned int index = 0;                 ///< in the table
        Form form = Form::UTF8;                 ///< of a literal
        unsigned int formIndex = 0;             ///< of its alphabet or algorithm
        const std::string* text = nullptr;      ///< of typed values their text; null if an index has no entry
        const ResolvedQualName* name = nullptr; ///< null if a part of the name has no entry
    };

    /// Enclose the parts and structures that belong to a structure.
    virtual void startStructure(Structure structure) = 0;
    virtual void endStructure(Structure structure) = 0;

    /// The next part of the document.
    virtual void part(const Part& part) = 0;

    virtual ~StructureObserver() = default;
};

} // namespace Vesk::FastInfoset

#endif // VESK_FASTINFOSET_STRUCTUREOBSERVER_H

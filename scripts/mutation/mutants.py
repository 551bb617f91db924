"""Makes mutants of C++ sources: copies that differ in one token or statement.

The sources are read as tokens, not parsed, and their layout (that of .clang-format) tells operators
from the rest: a comparison has blanks around it, a template's bracket has none. A mutant that makes
no sense to the compiler is found out when it is compiled.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(r'''
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ ]*\#[^\n]*)
  | (?P<text>"(?:\\.|[^"\\])*")
  | (?P<character>'(?:\\.|[^'\\])')
  | (?P<number>\b\d+\b)
  | (?P<word>\b[A-Za-z_]\w*\b)
  | (?P<operator><<|>>|<=|>=|==|!=|&&|\|\||\+\+|--|\+=|-=|->|::|[-+*/<>!&|=?:;,.(){}\[\]~])
''', re.VERBOSE | re.DOTALL | re.MULTILINE)

RELATIONAL = {'==': ['!='], '!=': ['=='], '<': ['<=', '>='], '>': ['>=', '<='],
              '<=': ['<', '>'], '>=': ['>', '<']}
ARITHMETIC = {'+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '<<': ['>>'], '>>': ['<<'],
              '++': ['--'], '--': ['++'], '+=': ['-='], '-=': ['+=']}
LOGICAL = {'&&': ['||'], '||': ['&&']}
WORDS = {'true': ['false'], 'false': ['true']}
CONTROL = {'if', 'for', 'while', 'switch', 'catch', 'return'}
OPENING, CLOSING = '([{', ')]}'


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclass(frozen=True)
class Mutant:
    """One change of one file: the text from `start` to `end` becomes `replacement`."""
    path: str
    operator: str
    start: int
    end: int
    replacement: str

    def apply(self, source):
        return source[:self.start] + self.replacement + source[self.end:]

    def describe(self, source):
        """The change as `line: old -> new`, independent of where in the file it stands."""
        begin = source.rfind('\n', 0, self.start) + 1
        end = source.find('\n', self.end)
        old = source[begin:end]
        new = source[begin:self.start] + self.replacement + source[self.end:end]
        return f'{" ".join(old.split())} -> {" ".join(new.split())}'


def tokens_of(source):
    found = [Token(match.lastgroup, match.group(), match.start(), match.end())
             for match in TOKEN.finditer(source)]
    return without_assertions([token for token in found if token.kind != 'skip'])


def without_assertions(tokens):
    """Leaves out what only the compiler evaluates: static_assert and names of headers."""
    kept, index = [], 0
    while index < len(tokens):
        if tokens[index].text == 'static_assert':
            index = closing(tokens, index + 1) + 2
            continue
        kept.append(tokens[index])
        index += 1
    return kept


def closing(tokens, opening):
    """Index of the bracket that closes the one at `opening`."""
    depth = 0
    for index in range(opening, len(tokens)):
        depth += (tokens[index].text in OPENING) - (tokens[index].text in CLOSING)
        if depth == 0:
            return index
    raise ValueError('unbalanced brackets')


def has_blanks_around(source, token):
    return source[token.start - 1] in ' \n' and source[token.end] in ' \n'


def token_changes(source, token):
    """The mutations of a single token, as (operator, replacement)."""
    if token.kind == 'number':
        number = int(token.text)
        yield from (('constant', str(other)) for other in (number + 1, number - 1) if other >= 0)
    elif token.kind == 'text':
        content = token.text[1:-1]
        yield 'text', '""' if content else '"x"'
        if len(content) > 1:
            yield 'text', f'"{content}~"'
    elif token.kind == 'character':
        yield 'text', "'~'"
    elif token.kind == 'word':
        yield from (('constant', other) for other in WORDS.get(token.text, []))
    elif token.text in ('++', '--'):
        yield from (('arithmetic', other) for other in ARITHMETIC[token.text])
    elif token.text == '!':
        yield 'negation', ''
    elif token.text == '?':
        yield 'negation', '== 0 ?'
    elif has_blanks_around(source, token):
        for name, table in (('relational', RELATIONAL), ('arithmetic', ARITHMETIC),
                            ('logical', LOGICAL)):
            yield from ((name, other) for other in table.get(token.text, []))


def token_mutants(path, source, tokens):
    for token in tokens:
        for operator, replacement in token_changes(source, token):
            yield Mutant(path, operator, token.start, token.end, replacement)


def condition_mutants(path, source, tokens):
    for index, token in enumerate(tokens[:-1]):
        if token.text in ('if', 'while') and tokens[index + 1].text == '(':
            last = tokens[closing(tokens, index + 1)]
            inner = source[tokens[index + 1].end:last.start]
            yield Mutant(path, 'negation', tokens[index + 1].end, last.start, f'!({inner})')


def begins_statement(tokens, index):
    """Whether a statement can begin at `index`: after another, or as what an `if` governs."""
    before = tokens[index - 1].text if index else '}'
    if before in (';', '{', '}'):
        return True
    if before != ')':
        return False
    opening, depth = index - 1, 1
    while depth:
        opening -= 1
        depth += (tokens[opening].text in CLOSING) - (tokens[opening].text in OPENING)
    return tokens[opening - 1].text in CONTROL


CALL_OR_ASSIGNMENT = re.compile(
    r'(?:\+\+|--)?[\w:.*>\[\]+-]+(?:\(\)[\w.>-]*)*\s*(?:\(.*\)[\w.>-]*|\s[-+]?=\s.*|)', re.DOTALL)
DECLARED_OBJECT = re.compile(r'const \w+ (?P<name>\w+)(?:\(.*\))?', re.DOTALL)


def is_used_later(tokens, index, name):
    """Whether the block that `index` is in names `name` after its declaration."""
    depth = uses = 0
    for token in tokens[index:]:
        depth += (token.text == '{') - (token.text == '}')
        uses += token.text == name
        if depth < 0:
            break
    return uses > 1


def statement_mutants(path, source, tokens):
    """Removes calls, assignments, increments, and objects that only work by being there."""
    for index, token in enumerate(tokens):
        if token.text in CONTROL or not begins_statement(tokens, index):
            continue
        end = next((other.start for other in tokens[index:] if other.text in ';{'), None)
        if not end or source[end] != ';':
            continue
        statement = source[token.start:end]
        works = CALL_OR_ASSIGNMENT.fullmatch(statement) and re.search(r'[(=]|\+\+|--', statement)
        guards = DECLARED_OBJECT.fullmatch(statement)
        if works or guards and not is_used_later(tokens, index, guards['name']):
            yield Mutant(path, 'call removed', token.start, end, '')


FUNCTION = re.compile(r'(?P<name>[^(=]*) \( .*\)(?: const| noexcept| override| throw \( \)| : .*)*')
STRUCTOR = re.compile(r'(?:explicit )?(?:\w+ :: )*(?:~ )?\w+')


def early_return_mutants(path, _source, tokens):
    begin = 0
    for index, token in enumerate(tokens):
        if token.text == '{' and tokens[index + 1].text != '}':
            header = ' '.join(other.text for other in tokens[begin:index])
            function = FUNCTION.fullmatch(header)
            if function and not CONTROL & set(header.split()):
                name = function['name']
                gives_nothing = STRUCTOR.fullmatch(name) or 'void' in name.split()
                yield Mutant(path, 'early return', token.end, token.end,
                             ' return;' if gives_nothing else ' return {};')
        if token.text in ('{', '}', ';') or token.text == ':' and tokens[index - 1].text in (
                'public', 'private', 'protected'):
            begin = index + 1


PARAMETER = re.compile(r'(?:const )?[\w:<>]+[ *&]+\w+(?: = .*)?', re.DOTALL)


def argument_mutants(path, source, tokens):
    """Swaps neighbouring arguments of calls and neighbouring values of lists."""
    for index, token in enumerate(tokens[:-1]):
        if token.kind != 'word' or token.text in CONTROL or tokens[index + 1].text not in '({':
            continue
        arguments = arguments_of(tokens, index + 1)
        texts = [source[first:last] for first, last in arguments]
        if any(';' in text or PARAMETER.fullmatch(text) for text in texts):
            continue
        for (first, end), (second, last) in zip(arguments, arguments[1:]):
            swapped = source[second:last] + source[end:second] + source[first:end]
            if source[first:end] != source[second:last]:
                yield Mutant(path, 'argument swapped', first, last, swapped)


def arguments_of(tokens, opening):
    """The places of the arguments between brackets, as pairs of start and end."""
    last, places, depth = closing(tokens, opening), [], 0
    first = opening + 1
    for index in range(opening + 1, last + 1):
        text = tokens[index].text
        if depth == 0 and (text == ',' or index == last) and index > first:
            places.append((tokens[first].start, tokens[index - 1].end))
            first = index + 1
        depth += (text in OPENING) - (text in CLOSING)
    return places


def mutants_of(path, source):
    """All mutants of a file, in the order of their place; each is another text."""
    tokens = tokens_of(source)
    made = [mutant for make in (token_mutants, condition_mutants, statement_mutants,
                                early_return_mutants, argument_mutants)
            for mutant in make(path, source, tokens)]
    different = {mutant.apply(source): mutant for mutant in reversed(made)}
    different.pop(source, None)  # a character that already is what it would become
    return sorted(different.values(), key=lambda mutant: (mutant.start, mutant.end,
                                                          mutant.replacement))

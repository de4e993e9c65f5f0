"""The messages of the campaign: their texts, their PDUs, and where they are found."""

import collections
import re

SIM_CAPACITY = 4
# Messages of the handset by their name, each with its locations; `ME` counts on from the SIM.
ON_PHONE = {"a": [1], "u": [2], "l": [6, 9, 7], "b": [8], "c": [12], "d": [13]}
# Messages of the PC by their name, in the order of pc/Outbox, with their receivers.
ON_PC = {"p": ["+4670001", "+4670002", "+4670003"], "r": ["+4670011", "+4670012", "+4670013"],
         "q": ["+4670021"], "s": ["+4670031"]}
LONG = "lrsn"
NEW = "n"  # the message that `save` makes
NEW_NUMBER = "+4670041"


def text_of(name):
    return "".join(f"{name}{i:03d}" for i in range(100 if name in LONG else 4))


def name_of(text):
    return text.lstrip("0123456789")[:1]


def sender_of(name):
    return f"+46711{ord(name):03d}"


# --- PDUs, 3GPP TS 23.040; all texts here are small letters and digits, which the GSM alphabet has where ASCII does

def semi_octets(digits):
    digits += "F" * (len(digits) % 2)
    return "".join(digits[i + 1] + digits[i] for i in range(0, len(digits), 2))


def deliver(name, text, total=1, sequence=1):
    header = bytes([5, 0, 3, ord(name), total, sequence]) if total > 1 else b""
    fill = (len(header) * 8 + 6) // 7
    bits = sum(ord(c) << 7 * (fill + i) for i, c in enumerate(text))
    data = bytearray(bits.to_bytes(((fill + len(text)) * 7 + 7) // 8, "little"))
    data[:len(header)] = header
    number = sender_of(name)[1:]
    return ("07911326040000F0" + ("44" if header else "04") + f"{len(number):02X}91{semi_octets(number)}0000" +
            "70304151906280" + f"{fill + len(text):02X}" + data.hex().upper())


def read_pdu(pdu, with_centre=True):
    """Number, text, and reference, total and sequence of the part."""
    octets = bytes.fromhex(pdu)
    at = 1 + octets[0] if with_centre else 0
    first = octets[at]
    submit = first & 3 == 1
    at += 2 if submit else 1
    digits = octets[at]
    number = semi_octets(octets[at + 2:at + 2 + (digits + 1) // 2].hex())[:digits]
    number = ("+" if octets[at + 1] & 0x70 == 0x10 else "") + number
    at += 2 + (digits + 1) // 2
    at += 2 + ({0: 0, 2: 1}.get(first >> 3 & 3, 7) if submit else 7)
    length, data = octets[at], octets[at + 1:]
    part, start = (0, 1, 1), 0
    if first & 0x40:
        header = data[1:1 + data[0]]
        start = ((data[0] + 1) * 8 + 6) // 7
        part = (header[2], header[3], header[4]) if header[0] == 0 else (header[2] << 8 | header[3], *header[4:6])
    bits = int.from_bytes(data, "little")
    return number, "".join(chr(bits >> 7 * i & 0x7F) for i in range(start, length)), part


def phone_state():
    """The state file of a virtual handset with these messages."""
    items = {"SM": [], "ME": []}
    for name, locations in ON_PHONE.items():
        text = text_of(name)
        for i, location in enumerate(locations):
            memory = "SM" if location <= SIM_CAPACITY else "ME"
            part = text[153 * i:153 * (i + 1)] if len(locations) > 1 else text
            items[memory].append({"location": location - (SIM_CAPACITY if memory == "ME" else 0),
                                  "stat": 0 if name == "u" else 1,
                                  "pdu": deliver(name, part, len(locations), i + 1)})
    no_contacts = {"capacity": 0, "numberLength": 20, "nameLength": 14, "items": []}
    return {"format": "virtual-handset", "version": 1, "contacts": {"SM": no_contacts, "ME": no_contacts},
            "messages": {"SM": {"capacity": SIM_CAPACITY, "items": items["SM"]},
                         "ME": {"capacity": 12, "items": items["ME"]}}}


class Census:
    """How often each message is whole, and how many are in pieces."""

    def __init__(self):
        self.whole = collections.Counter()
        self.pieces = collections.Counter()
        self.strange = []

    def take(self, name, text):
        if text == text_of(name):
            self.whole[name] += 1
        elif text and text in text_of(name):
            self.pieces[name] += 1
        else:
            self.strange.append(text[:20])


def count_phone(state):
    parts = collections.defaultdict(list)
    census = Census()
    for memory in state["messages"].values():
        for item in memory["items"]:
            number, text, (reference, total, sequence) = read_pdu(item["pdu"])
            parts[number, name_of(text), reference, total].append((sequence, text))
    for (number, name, _, total), group in parts.items():
        while group:
            one = {}
            for part in list(group):
                if part[0] not in one:
                    one[part[0]] = part[1]
                    group.remove(part)
            if len(one) == total:
                known = [sender_of(name)] if name in ON_PHONE else ON_PC.get(name, [NEW_NUMBER])
                text = "".join(one[i] for i in sorted(one))
                if number in known:
                    census.take(name, text)
                else:
                    census.strange.append(f"{number}: {text[:20]}")
            else:
                census.pieces[name or "?"] += 1
    return census


def count_pc(messages, divided=False):
    """In sending a message is divided: those who have got it, and those who wait for it."""
    census = Census()
    for record, _ in messages:
        name, text, total = record["text"][:1], record["text"], len(record["rawParts"])
        if record["hasHeader"]:
            # Each part is the header's length, the header and the text.
            parts = [bytes.fromhex(part) for part in record["rawParts"]]
            total = parts[0][4]
            text = b"".join(part[part[0] + 1:] for part in sorted(parts, key=lambda part: part[5])).decode("latin-1")
        numbers = [sender_of(name)] if name in ON_PHONE else ON_PC.get(name, [NEW_NUMBER])
        given = record["number"].split(",")
        if total > len(record["rawParts"]):
            census.pieces[name] += 1
        elif given == numbers or (divided and set(given) <= set(numbers)):
            census.take(name, text)
        else:
            census.strange.append(f"{record['number']}: {text[:20]}")
    return census


def sent_bodies(logs):
    """Each body that was given after AT+CMGS: receiver, name, part, and whether the handset said that it went."""
    sent, pending, expected, reply = [], None, False, ""
    for log in logs:
        with open(log, encoding="ascii") as file:
            for line in file:
                who, content = line[9], line[11:].rstrip("\n")
                if who == ">":
                    body = re.search(r"([0-9A-F]+)<1A>", content)
                    pending, reply = None, ""
                    if body and expected:
                        # The service centre stands in front.
                        number, text, part = read_pdu(body.group(1))
                        pending = [number, name_of(text), part[2], part[1], False]
                        sent.append(pending)
                    expected = "AT+CMGS=" in content
                elif pending:
                    reply += content  # it may come in pieces
                    pending[4] = "+CMGS:" in reply
    return sent

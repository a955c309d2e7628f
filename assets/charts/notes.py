"""What stands below the tables of the charts.  Words between * are bold."""
import tables_bat as bat
import tables_field as field
import tables_tactics as tactics


def in_words(places):
    return " and ".join(filter(None, (", ".join(map(str, places[:-1])), str(places[-1]))))


def order_words():
    by_column = {}
    for place, column in enumerate(bat.ORDER_COLUMNS, 1):
        by_column.setdefault(column, []).append(place)
    parts = [f"{in_words(by_column[column])} read *{bat.BATTER_COLUMNS[column]}*"
             for column in sorted(by_column)]
    return ("*No averages?* By place in the order: " + "; ".join(parts)
            + ". A single batter without one reads *below*.")


SHARES = [f"{share:.3f}".lstrip("0") for share in bat.WIN_SHARES]

# the sentence in the yellow bar
BARS = {
    3: "Nobody on, or two out: GO.",
    5: "Add 1 for a fast runner and 1 with two out, for each runner by himself; 6 at most.",
    6: f"The catcher has arm A: take {field.ARM['A']} off yellow.  "
       f"Arm AA: take {field.ARM['AA']} off.",
}

NOTES = {
    1: (
        "*PITCH* chart 2, yellow.   *GROUND* chart 3, white.   *FLY, LINE* chart 4, white.   *LONG* "
        "chart 4, yellow.   *RARE* chart 8, yellow.",
        "*1B, 2B* chart 5, white.   *BB, K, PO* runners hold, except those a walk forces.   *pitcher* is "
        "for pitchers who bat.",
    ),
    2: (
        "*GROUND* and *FLY* go on to charts 3 and 4, with the white die of the same roll. *PO:* runners "
        "hold. *1B, 2B:* chart 5.",
        f"*No earned run average?* Take his share of games won: {SHARES[0]} and more reads *below 3.00*, "
        f"{SHARES[1]} reads *3.00 +*, {SHARES[2]} reads *3.50 +*, less reads *4.00 +*. No numbers at all: "
        "starters read *3.00 +*, relievers *3.50 +*. A tiring pitcher reads further right: chart 9.",
    ),
    3: (
        "Whoever is not named stays. *FC:* the batter is on 1st. A double play with one out ends the "
        "inning, and nobody scores on it.",
    ),
    4: (
        "*Two out:* FLY is FO and LINE is LO, the inning is over.",
        "*Flies:* whoever is not named holds. *Fast* are players with speed A or AA.",
        "*LONG:* first add wind and fences of the day to the yellow die; more than 20 is 20, less than 1 "
        "is 1. *power* is for a batter with that word. 2B: chart 5. FO with two out: the inning is over.",
    ),
    5: (
        f"After the hit you may send a runner who stopped. Roll once more, read yellow. Take off "
        f"{field.ARM['A']} for a fielder with arm A, {field.ARM['AA']} for arm AA; add "
        f"{field.SEND_TWO_OUT} with two out. Nobody passes another runner.",
        "*3B, HR:* every runner scores.",
        "*BB, hit by pitch:* only runners who are forced go up one base.",
        "*AB on an error:* see chart 8.",
        "*Each run:* RBI first, then the label of the hit. Double-click the piece of a player who scores, "
        "drag the others.",
        "*Out on the bases:* after the hit, TO; take his piece off.",
    ),
    6: (
        "*Safe:* Ctrl and click the upper half of his piece, drag it to the next base.",
        "*Out:* TO, and double-click his piece. The same batter is still up.",
        f"*A {tactics.STEAL_WILD} on the die:* safe, and the throw goes wild. He takes one base more if it "
        "is free; add 1 to the fielders’ E.",
        "*Home stolen:* RBI, then take the RBI off on the sheet.",
        "*Who may run:* a runner whose next base is free. On a double steal roll for the lead runner; if he "
        "is safe, the other is too, and if he is out, the other is safe.",
        f"*Then* roll again for the batter. No word in the file? Places {in_words(bat.ORDER_FAST)} of the "
        "order have speed A.",
    ),
    7: (
        "*Bunt:* GO with runners up is a sacrifice: take the AB off on the sheet. *Lead runner:* the one "
        "nearest home; those behind him go up one, on DP they hold. On PO and K all hold. Bunting for a "
        f"hit, a batter who is not fast takes {-tactics.BUNT_SLOW} off yellow. *Hit and run:* with two out "
        "DP is LO and K is K alone. On FO and PO all hold. *K, 1st is out:* K, then TO. *TO:* a sign was "
        "missed; same batter.",
    ),
    8: (
        f"† A player with *glove* is there and white is {tactics.GLOVE_SAVES} or 6: no error, GO in the "
        "infield, FO in the outfield, runners hold. *Error:* click AB and add 1 to the fielders’ E. *Hit "
        "by pitch:* click the next batter’s row. *Same batter:* roll again.",
    ),
    9: (
        f"*Starters* from the {tactics.STARTER_TIRES}th inning, one more from the "
        f"{tactics.STARTER_TIRES_MORE}th.",
        f"*Relievers* from the {tactics.RELIEVER_TIRES}rd inning of their own.",
        f"*All pitchers* for each {tactics.RUNS_TIRE} runs given up.",
        "*Heat:* all that an inning earlier. Past the last column nothing gets worse.",
        order_words(),
        f"*No speed or power?* Places {in_words(bat.ORDER_FAST)} have speed A, places "
        f"{in_words(bat.ORDER_POWER)} have power.",
        "*No number for a pitcher?* See chart 2.",
    ),
}

STEPS = (
    "*Steal, bunt, hit and run?* Say it, roll, read chart 6 or 7. An intentional walk is BB.",
    "*ROLL.* All four dice count, once.",
    "*Red and green:* chart 1, in the batter’s column.",
    "*PITCH:* yellow on chart 2. *LONG:* yellow on chart 4. *RARE:* yellow on chart 8.",
    "*White:* grounders on chart 3, flies and line drives on 4, runners on 5.",
    "*Runs first:* RBI for each, then the label of the play. Move the pieces.",
    "*Third out:* click the batter who leads off for the other side.",
)
END = ("After nine innings the side with more runs wins. The home side does not bat when it leads "
       "after the top of the ninth, and stops when it goes ahead later. A tied game goes on.",)

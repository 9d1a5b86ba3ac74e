"""The fewest straight runs through a corridor, slowly and exactly: the slopes that every pair of limits leaves.

A line below the upper limits and above the lower ones exists if and only if the slopes that pairs of limits leave have one in common.
"""


class Fan:
    """The slopes of the lines through all limits so far, each bound with its pair (lower limit, upper limit)."""

    def __init__(self):
        self.ups, self.lows, self.least, self.most = [], [], None, None

    def add_up(self, up):
        self.ups.append(up)
        for low in self.lows:
            self.pair(low, up)

    def add_low(self, low):
        self.lows.append(low)
        for up in self.ups:
            self.pair(low, up)

    def pair(self, low, up):
        if low[0] == up[0]:
            return
        slope = (up[1] - low[1]) / (up[0] - low[0])
        if low[0] < up[0] and (self.most is None or slope < self.most[0]):
            self.most = (slope, low, up)
        if low[0] > up[0] and (self.least is None or slope > self.least[0]):
            self.least = (slope, low, up)

    def below(self, low):
        """Every line passes below this lower limit."""
        return self.most is not None and self.at(self.most, low[0]) < low[1]

    def above(self, up):
        return self.least is not None and self.at(self.least, up[0]) > up[1]

    @staticmethod
    def at(bound, x):
        slope, low, _ = bound
        return low[1] + slope * (x - low[0])


def meeting(bound, a, b, side):
    """Where a line that is inside at a meets the limit from a to b; None when it is inside at b too."""
    inside = [(limit[1] - Fan.at(bound, limit[0])) * side for limit in (a, b)]
    if inside[1] >= 0:
        return None
    x = a[0] + (b[0] - a[0]) * inside[0] / (inside[0] - inside[1])
    return x, Fan.at(bound, x)


def windows(doors):
    """The windows (from, to) of a corridor whose doors are open."""
    found, fan, j, first = [], Fan(), 0, 0
    while j < len(doors):
        x, passage = doors[j][0], doors[j][3]
        up, low = (x, passage[1]), (x, passage[0])
        if fan.below(low) or fan.above(up):
            high = fan.above(up)  # the limit through which the lines leave
            bound = fan.least if high else fan.most
            contact = bound[1] if high else bound[2]
            side = 1 if high else 0
            exit_ = meeting(bound, (doors[j - 1][0], doors[j - 1][2][side]), (x, doors[j][1][side]), 1 if high else -1)
            found.append((contact[0], exit_[0] if exit_ else x))
            fan = Fan()
            keep, leave = (fan.add_low, fan.add_up) if high else (fan.add_up, fan.add_low)
            keep(contact)
            for d in doors[:j]:
                if d[0] > contact[0]:
                    keep((d[0], d[3][1 - side]))
            if exit_ and exit_[0] < x:
                leave(exit_)
        else:
            fan.add_up(up)
            fan.add_low(low)
            j += 1
    return found


def runs(doors):
    return len(windows(doors)) + 1


-- Made, not measured: what a plant draws in each of 100,000 hours from 2012 on. Days and years swing, the rest
-- wanders, now and then there is a peak of an hour, and for a month nobody has written anything down.
WITH RECURSIVE hour(number, random, drift) AS (
    SELECT 0, 12345, 0.0
    UNION ALL
    SELECT number + 1,
           (random * 1103515245 + 12345) % 2147483648,
           drift * 0.999 + random / 2147483648.0 - 0.5
    FROM hour
    WHERE number < 99999)
SELECT datetime('2012-01-01', number || ' hours') AS time,
       CASE WHEN number BETWEEN 52000 AND 52700 THEN NULL
            ELSE round(80 + 1.5 * (6 - abs(number % 24 - 13)) + (2191 - abs(number % 8766 - 4383)) / 100.0 + drift
                       + CASE number % 29989 WHEN 14001 THEN 90 ELSE 0 END, 2)
       END AS power
FROM hour

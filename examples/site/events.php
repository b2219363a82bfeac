<!DOCTYPE html>
<!-- updated: 2010-06-01 -->
<html lang="en">
<head>
  <meta charset="utf-8">
  <title>What&rsquo;s on</title>
  <meta name="viewport" content="width=device-width, initial-scale=1">
  <link rel="stylesheet" href="style.css">
</head>
<body>
  <header>
    <p class="brand">Brackwater Mill Museum</p>
    <nav>
      <a href="index.html">Home</a>
      <a href="visit.html">Visit</a>
      <a href="events.php" class="here">What&rsquo;s on</a>
      <a href="machinery/">Machinery</a>
      <a href="exhibitions/">Exhibitions</a>
      <a href="recipes/">Recipes</a>
      <a href="shop.html">Shop</a>
      <a href="contact.html">Contact</a>
    </nav>
  </header>
  <main>
    <h1>What&rsquo;s on</h1>
    <table>
      <tr><th>8 May</th><td><a href="events.php?id=1">National Mills Weekend</a></td></tr>
      <tr><th>20 June</th><td><a href="events.php?id=2">Midsummer grinding by lantern light</a></td></tr>
      <tr><th>15 August</th><td><a href="events.php?id=3">Oven day</a></td></tr>
      <tr><th>19 September</th><td><a href="events.php?id=4">Harvest supper</a></td></tr>
    </table>
  </main>
  <footer>
    <nav>
      <a href="news.html">News</a>
      <a href="friends.html">Friends of the Mill</a>
      <a href="partners/">Partner mills</a>
      <a href="photos/">Photo archive</a>
      <a href="staff/rota.html">Staff rota</a>
      <a href="languages/polski.html">Polski</a>
      <a href="languages/nihongo.html">日本語</a>
    </nav>
    <p>Brackwater Mill, Mill Lane, Brackwater. Open from Easter to the end of October.</p>
  </footer>
</body>
</html>

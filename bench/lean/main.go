// A crawler as lean as one can be: visits every page of a site over some connections, one GET a page, reads titles
// and anchors from the tokens of golang.org/x/net/html, and writes nothing. Prints how many pages it has seen.
//
//	lean URL [CONNECTIONS]
package main

import (
	"fmt"
	"io"
	"net/http"
	"net/url"
	"os"
	"strconv"
	"strings"
	"sync"

	"golang.org/x/net/html"
)

type crawl struct {
	client  *http.Client
	folder  string // addresses below it are pages of the site
	mutex   sync.Mutex
	ready   *sync.Cond
	seen    map[string]bool
	queue   []string
	working int
	pages   int
	titles  int
}

// next blocks until there is a page to visit; false when none is left and none can come.
func (c *crawl) next() (string, bool) {
	c.mutex.Lock()
	defer c.mutex.Unlock()
	for len(c.queue) == 0 && c.working > 0 {
		c.ready.Wait()
	}
	if len(c.queue) == 0 {
		return "", false
	}
	address := c.queue[0]
	c.queue = c.queue[1:]
	c.working++
	return address, true
}

func (c *crawl) done(title string, links []string) {
	c.mutex.Lock()
	defer c.mutex.Unlock()
	for _, link := range links {
		if !c.seen[link] {
			c.seen[link] = true
			c.queue = append(c.queue, link)
		}
	}
	c.working--
	c.pages++
	if title != "" {
		c.titles++
	}
	c.ready.Broadcast()
}

func (c *crawl) visit(address string) (title string, links []string) {
	answer, err := c.client.Get(address)
	if err != nil {
		return
	}
	defer answer.Body.Close()
	defer io.Copy(io.Discard, answer.Body)
	if answer.StatusCode != 200 || !strings.HasPrefix(answer.Header.Get("Content-Type"), "text/html") {
		return
	}
	tokens, inTitle := html.NewTokenizer(answer.Body), false
	for {
		switch tokens.Next() {
		case html.ErrorToken:
			return
		case html.TextToken:
			if inTitle && title == "" {
				title = string(tokens.Text())
			}
		case html.EndTagToken:
			inTitle = false
		case html.StartTagToken:
			name, more := tokens.TagName()
			inTitle = string(name) == "title"
			for isAnchor := string(name) == "a"; more && isAnchor; {
				var key, value []byte
				if key, value, more = tokens.TagAttr(); string(key) == "href" {
					links = c.link(links, answer.Request.URL, string(value))
				}
			}
		}
	}
}

func (c *crawl) link(links []string, base *url.URL, href string) []string {
	target, err := base.Parse(href)
	if err != nil {
		return links
	}
	target.Fragment = ""
	if link := target.String(); strings.HasPrefix(link, c.folder) {
		return append(links, link)
	}
	return links
}

func main() {
	start, connections := os.Args[1], 6
	if len(os.Args) > 2 {
		connections, _ = strconv.Atoi(os.Args[2])
	}
	c := &crawl{folder: start[:strings.LastIndex(start, "/")+1], seen: map[string]bool{start: true}, queue: []string{start}}
	c.client = &http.Client{Transport: &http.Transport{MaxIdleConnsPerHost: connections}}
	c.ready = sync.NewCond(&c.mutex)
	var workers sync.WaitGroup
	for i := 0; i < connections; i++ {
		workers.Add(1)
		go func() {
			defer workers.Done()
			for address, ok := c.next(); ok; address, ok = c.next() {
				c.done(c.visit(address))
			}
		}()
	}
	workers.Wait()
	fmt.Println(c.pages, "pages,", c.titles, "with a title")
}
